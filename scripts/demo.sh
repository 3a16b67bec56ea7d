#!/usr/bin/env bash
# usage: scripts/demo.sh
# Builds the library and the examples for x86-64 and runs them on the data that comes with them.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

{
    scripts/install-packages.sh
    cmake --preset x86_64
    cmake --build --preset x86_64 --target great_circle decay --parallel "$(nproc)"
} >&2
echo "== great circles: sine, cosine, square root, arc sine, arc tangent"
build/x86_64/bin/great_circle examples/data/zone1970.tab
echo
echo "== radioactive decay: e^x and logarithm"
build/x86_64/bin/decay examples/data/half_lives.csv
