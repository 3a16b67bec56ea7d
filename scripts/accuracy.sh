#!/usr/bin/env bash
# usage: scripts/accuracy.sh [x86_64 | i386] [OPTION]...
# Measures the errors of all functions and publishes them: docs/accuracy/errors_<target>.csv, tables_<target>.md
# and, on x86-64 where gnuplot is installed, a plot of each family. Options go to zelk-accuracy in place of those of the full survey, e.g.
# `scripts/accuracy.sh x86_64 --samples 20000`. On 32-bit x86 a smaller survey is the usual one: most kernels are those
# of x86-64. A survey that was interrupted goes on where it stopped.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

target=x86_64
if [ $# -gt 0 ] && [[ $1 != --* ]]; then
    target=$1
    shift
fi
options=("$@")
if [ $# -eq 0 ]; then
    options=(--exhaustive --samples 400000 --radius 65536)
    # Every argument once is enough: on 32-bit x86 a dense sample tells whether the kernels differ.
    [ "$target" = x86_64 ] || options=(--samples 200000 --radius 4096)
fi

scripts/install-packages.sh "${target#x86_64}" >&2
cmake --preset "$target" >&2
cmake --build --preset "$target" --target zelk-accuracy --parallel "$(nproc)" >&2

state=build/$target/accuracy
results=docs/accuracy
[ $# -eq 0 ] || state=$state-$(cksum <<<"$*" | cut -d ' ' -f 1)
started=$SECONDS
"build/$target/bin/zelk-accuracy" "${options[@]}" --state "$state" \
    --csv "$results/errors_$target.csv" --markdown "$state/tables.md"
minutes=$(((SECONDS - started + 59) / 60))
{
    echo "# Errors measured on $target"
    echo
    echo "Written by \`scripts/accuracy.sh $target\`; the terms are those of [accuracy.md](../accuracy.md)."
    echo
    echo "$(date --utc +%F), $(sed -n 's/^model name\s*: //p' /proc/cpuinfo | head -n 1), $(nproc) processors, $(c++ --version | head -n 1);"
    echo "\`zelk-accuracy ${options[*]}\`, $minutes min for what had not been measured before."
    cat "$state/tables.md"
} >"$results/tables_$target.md"

if [ "$target" = x86_64 ] && command -v gnuplot >/dev/null; then
    scripts/plot_accuracy.sh "$state" "$results"
fi
# The reference pages quote the figures.
cmake --build --preset "$target" --target reference-pages >&2
