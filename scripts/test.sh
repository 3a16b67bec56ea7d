#!/usr/bin/env bash
# usage: scripts/test.sh [PRESET]...
# Builds and runs all tests of the presets, x86_64 and i386 if none is named (sanitize is the third).
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

presets=("$@")
if [ $# -eq 0 ]; then
    presets=(x86_64 i386)
fi
for preset in "${presets[@]}"; do
    case $preset in
        i386) scripts/install-packages.sh i386 ;;
        x86_64 | sanitize) scripts/install-packages.sh ;;
        *) echo "no preset $preset: x86_64, i386 or sanitize" >&2; exit 2 ;;
    esac
done

status=0
for preset in "${presets[@]}"; do
    echo "== $preset"
    cmake --preset "$preset"
    cmake --build --preset "$preset" --parallel "$(nproc)"
    ctest --preset "$preset" || status=1
done
exit $status
