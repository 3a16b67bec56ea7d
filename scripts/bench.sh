#!/usr/bin/env bash
# usage: scripts/bench.sh [ENTRY]...
# Builds the benchmarks and prints one line per entry and tier: all entries, or those named. Short repetitions in
# random order, of which the smallest time counts, so that other work on the machine hardly shows.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

{
    scripts/install-packages.sh
    cmake --preset x86_64
    cmake --build --preset x86_64 --target zelk-bench --parallel "$(nproc)"
} >&2
exec build/x86_64/bin/zelk-bench --summary --benchmark_enable_random_interleaving=true --benchmark_repetitions=50 "$@"
