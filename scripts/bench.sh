#!/usr/bin/env bash
# usage: scripts/bench.sh [--target x86_64|i386] [--seconds N] [FUNCTION]...
# Measures every entry, kernel and scalar routine beside the C library and the vector libraries that are installed,
# and writes tables and plots to docs/performance/. With FUNCTIONs (sinf4, expl_scalar), only prints what is measured
# of those. --seconds is the time for what runs in the first-level cache (360; 5 for named functions); what else a
# complete run does takes two to three minutes.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

target=x86_64
seconds=
while [[ ${1:-} == --* ]]; do
    case $1 in
    --target) target=$2 ;;
    --seconds) seconds=$2 ;;
    *)
        sed -n '2,6s/^# //p' "$0" >&2
        exit 2
        ;;
    esac
    shift 2
done

{
    scripts/install-packages.sh bench
    [ "$target" = x86_64 ] || scripts/install-packages.sh "$target"
    cmake --preset "$target"
    cmake --build --preset "$target" --target zelk-bench zelk-load-time --parallel "$(nproc)"
} >&2
build=build/$target
if [ $# -gt 0 ]; then
    exec "$build/bin/zelk-bench" --seconds "${seconds:-5}" "$@"
fi

results=docs/performance/$target
mkdir -p docs/performance
"$build/bin/zelk-bench" --seconds "${seconds:-360}" --output "$results.csv" 2>"$build/clock"
GLIBC_TUNABLES=glibc.cpu.hwcaps=-FMA,-FMA4,-AVX2 "$build/bin/zelk-bench" --seconds 30 --libm-only "libm without FMA" \
    --output "${results}_libm_without_fma.csv"
if [ "$target" = x86_64 ]; then
    bench/bounds.py "$build" "${results}_bounds.csv"
fi

library=$build/lib/libzelk.so
smallest_and_median() { sort -n | awk '{ value[NR] = $1 } END { print value[1] / 1000, "/", value[int((NR + 1) / 2)] / 1000, "µs" }'; }
for _ in $(seq 200); do "$build/bin/zelk-load-time" "$library"; done >"$build/load_times"
section() { size -A "$library" | awk -v name="$1" '$1 == name { print $2 }'; }
cat >"${results}_machine.txt" <<END
processor: $(sed -n 's/^model name\s*: //p' /proc/cpuinfo | head -n 1), family $(sed -n 's/^cpu family\s*: //p' /proc/cpuinfo | head -n 1), model $(sed -n 's/^model\s*: //p' /proc/cpuinfo | head -n 1)
clock: $(sed -n 's/^clock //p' "$build/clock")
compiler: $(c++ --version | head -n 1)
C library: $(ldd --version | head -n 1)
peers: $([ "$target" = x86_64 ] || echo none; [ "$target" != x86_64 ] || dpkg-query --show --showformat '${Package} ${Version}, ' libsleef3 libeigen3-dev libxsimd-dev libhwy-dev 2>/dev/null | sed 's/, $//')
date: $(date +%F)
command: scripts/bench.sh --target $target
loading the library, smallest / median of 200 processes: $(cut -d' ' -f1 "$build/load_times" | smallest_and_median)
first call of a process: $(cut -d' ' -f2 "$build/load_times" | smallest_and_median)
second call: $(cut -d' ' -f3 "$build/load_times" | smallest_and_median)
code: $(section .text) bytes, constants and tables: $(section .rodata) bytes
END
bench/report.py docs/performance "$target"
