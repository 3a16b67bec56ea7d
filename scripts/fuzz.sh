#!/usr/bin/env bash
# usage: scripts/fuzz.sh [SECONDS]
# Fuzzes all vector functions for a minute, or as long as asked for, on x86-64: clang's libFuzzer looks for arguments
# whose errors are above the published ones or whose results differ in kind between tiers. What it has found
# interesting stays in build/x86_64/fuzz/corpus; a failing input is named in the output and left in build/x86_64/fuzz.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
seconds=${1:-60}

if ! command -v clang++ >/dev/null; then
    echo "fuzz.sh needs clang++ with libFuzzer" >&2
    exit 2
fi
build=build/x86_64
{
    scripts/install-packages.sh
    cmake --preset x86_64
    cmake --build --preset x86_64 --target zelk-survey --parallel "$(nproc)"
} >&2
mkdir -p $build/fuzz/corpus
clang++ -std=c++20 -O1 -g -fsanitize=fuzzer -frounding-math -msse2 -Wall -Wextra \
    -Itools/support -Itools/accuracy -Iinclude tests/fuzz/kernels_fuzz.cpp \
    $build/lib/libzelk-survey.a $build/lib/libzelk-exact.a $build/lib/libzelk-support.a \
    -L$build/lib "-Wl,-rpath,$PWD/$build/lib" -lzelk -lbrava -lmpc -lmpfr -lgmp -ldl -lpthread \
    -o $build/fuzz/kernels_fuzz
# Every function once with each of a few vectors, to start from.
for entry in $(seq 0 127); do
    for word in 0000803f 0000003f 000000c0 00007042; do
        printf '%b' "$(printf '\\x%02x' "$entry")$(for _ in 1 2 3 4 5 6 7 8; do sed 's/../\\x&/g' <<<"$word"; done)"
    done >"$build/fuzz/corpus/start_$entry"
done
exec $build/fuzz/kernels_fuzz -max_len=33 -max_total_time="$seconds" -artifact_prefix="$build/fuzz/" \
    -print_final_stats=1 $build/fuzz/corpus
