#!/usr/bin/env bash
# usage: scripts/try-packages.sh [PRESET]
# Builds the Debian packages (x86_64 if no preset is named), installs them with apt, builds and runs a program against
# them, removes them, and fails if anything is left or has changed. Needs root. The system itself stays as it is: all of
# this happens in a copy of it that is thrown away (an overlay in a mount namespace).
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
preset=${1:-x86_64}
case $preset in
    x86_64) flags=() architecture=amd64 ;;
    i386) flags=(-m32) architecture=i386 ;;
    *) echo "no preset $preset: x86_64 or i386" >&2; exit 2 ;;
esac
build=$PWD/build/$preset

if [ "${2:-}" != inside ]; then
    cmake --preset "$preset" > /dev/null
    cmake --build --preset "$preset" --parallel "$(nproc)"
    rm -f "$build"/*.deb
    (cd "$build" && cpack -G DEB)
    exec unshare --mount "$0" "$preset" inside
fi

# The copy: the root file system below, changes in memory above.
scratch=$(mktemp -d)
mount -t tmpfs none "$scratch"
mkdir "$scratch"/{upper,work,root}
mount -t overlay none -o "lowerdir=/,upperdir=$scratch/upper,workdir=$scratch/work" "$scratch/root"
root=$scratch/root
for directory in proc dev sys; do
    mount --rbind "/$directory" "$root/$directory"
done
mkdir -p "$root/trial"
cp "$build"/libzelk1_*.deb "$build"/libzelk-dev_*.deb tests/consumers/plain.c "$root/trial"

in_copy() {
    chroot "$root" /usr/bin/env DEBIAN_FRONTEND=noninteractive PATH=/usr/sbin:/usr/bin:/sbin:/bin "$@"
}
# Every file but those that dpkg, apt and ldconfig keep for themselves, with size and time of change.
files() {
    find "$root"/{usr,etc,lib,opt,var} -xdev \
        \( -path "$root/var/lib/dpkg" -o -path "$root/var/lib/apt" -o -path "$root/var/cache" -o -path "$root/var/log" \
        -o -path "$root/etc/ld.so.cache" \) -prune -o \( -type d -printf '%p\n' -o -printf '%p %s %T@\n' \) | sort
}

[[ $architecture == amd64 ]] || in_copy dpkg --add-architecture i386
files > "$scratch/before"
in_copy apt-get install -qq -y --no-install-recommends /trial/libzelk1_1.0.0_$architecture.deb \
    /trial/libzelk-dev_1.0.0_$architecture.deb
files > "$scratch/installed"
in_copy ldconfig -p | grep -F libzelk.so.1
pkg_config=(pkg-config)
[[ $architecture == amd64 ]] || pkg_config=(env PKG_CONFIG_LIBDIR=/usr/lib/i386-linux-gnu/pkgconfig pkg-config)
in_copy sh -c "cd /trial && cc ${flags[*]} plain.c \$(${pkg_config[*]} --cflags --libs zelk) -o plain && ./plain && ldd plain"
in_copy apt-get purge -qq -y libzelk-dev:$architecture libzelk1:$architecture
files > "$scratch/after"
if cmp -s "$scratch/before" "$scratch/installed"; then
    echo "nothing was installed" >&2
    exit 1
fi
diff "$scratch/before" "$scratch/after" || { echo "the packages leave something behind" >&2; exit 1; }
echo "$preset: $(diff "$scratch/before" "$scratch/installed" | grep -c '^>') files installed and removed, nothing left"
