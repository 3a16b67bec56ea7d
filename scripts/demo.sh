#!/usr/bin/env bash
# usage: scripts/demo.sh
# Builds the library and the examples for x86-64 and runs them on the data that comes with them.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

{
    scripts/install-packages.sh
    cmake --preset x86_64
    cmake --build --preset x86_64 --target great_circle --parallel "$(nproc)"
} >&2
exec build/x86_64/bin/great_circle examples/data/zone1970.tab
