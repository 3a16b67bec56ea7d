#!/usr/bin/env bash
# usage: scripts/install-packages.sh [i386|bench]
# Installs with apt what building and testing on Debian 12 needs and is missing; with i386, also the 32-bit
# libraries of the i386 tests; with bench, also what the measurements take. Does
# nothing, and needs no rights, when everything is there.
set -euo pipefail

packages=(g++ g++-multilib binutils cmake ninja-build ccache git googletest libgmp-dev libmpc-dev
          libmpfr-dev sollya)
if [ "${1:-}" = i386 ]; then
    packages+=(libgmp-dev:i386 libmpc-dev:i386 libmpfr-dev:i386)
fi
if [ "${1:-}" = bench ]; then
    packages+=(gnuplot-nox libeigen3-dev libhwy-dev libsleef3 libxsimd-dev llvm python3)
fi

is_installed() {
    [ "$(dpkg-query --show --showformat='${db:Status-Status}\n' "$1" 2>/dev/null | head -n 1)" = installed ]
}

missing=()
for package in "${packages[@]}"; do
    is_installed "$package" || missing+=("$package")
done
if [ ${#missing[@]} -eq 0 ]; then
    exit 0
fi

echo "installing ${missing[*]}"
as_root=()
if [ "$(id -u)" -ne 0 ]; then
    as_root=(sudo)
fi
if [[ ${missing[*]} == *:i386* ]] && ! dpkg --print-foreign-architectures | grep -qx i386; then
    "${as_root[@]}" dpkg --add-architecture i386
fi
# One index that cannot be fetched must not stop packages that come from others.
"${as_root[@]}" apt-get update || echo "apt-get update failed; going on with the package lists at hand" >&2
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}"
