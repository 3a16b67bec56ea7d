#!/bin/sh
# Installs the build into a directory, moves it, and builds and runs outside programs against it: with CMake, with
# pkg-config, shared and static, and with the sources as a subdirectory.
# usage: check_package.sh SOURCE_DIRECTORY BUILD_DIRECTORY LIBRARY_DIRECTORY C_COMPILER CXX_COMPILER [flag...]
set -eux
source=$1
build=$2
library=$3
cc=$4
cxx=$5
shift 5
flags="$*"
consumers=$source/tests/consumers
work=$build/package_test
rm -rf "$work"
mkdir -p "$work"
cmake --install "$build" --prefix "$work/first" > "$work/install.log"
mv "$work/first" "$work/prefix"
prefix=$work/prefix
if grep -rlI -e "$build" -e "$source" "$prefix"; then
    echo "a path of the build is in the package" >&2
    exit 1
fi

# pkg-config
PKG_CONFIG_LIBDIR=$prefix/$library/pkgconfig
export PKG_CONFIG_LIBDIR
cd "$work"
path=-Wl,-rpath,$prefix/$library
$cc $flags "$consumers/plain.c" $(pkg-config --cflags --libs zelk) "$path" -o plain
$cxx $flags -std=c++17 "$consumers/lanes.cpp" $(pkg-config --cflags --libs zelk) "$path" -o lanes
$cc $flags -O2 -fopenmp-simd "$consumers/loops.c" $(pkg-config --cflags --libs zelk-simd) "$path" -o loops
$cc $flags -static "$consumers/plain.c" $(pkg-config --cflags --static --libs zelk) -o plain_static
$cc $flags -static -O2 -fopenmp-simd "$consumers/loops.c" $(pkg-config --cflags --static --libs zelk-simd) -o loops_static
for program in plain lanes loops plain_static loops_static; do
    ./$program
done

# CMake
configure() {
    cmake -G Ninja -S "$consumers" -B "$1" -D CMAKE_C_COMPILER="$cc" -D CMAKE_CXX_COMPILER="$cxx" \
        -D CMAKE_C_FLAGS="$flags" -D CMAKE_CXX_FLAGS="$flags" -D CMAKE_ASM_FLAGS="$flags" "$2"
}
configure cmake -Dzelk_DIR="$prefix/$library/cmake/zelk"
cmake --build cmake
for program in plain lanes loops; do
    cmake/$program
    cmake/${program}_static
done

# A subdirectory
configure subdirectory -DZELK_SOURCE="$source"
cmake --build subdirectory --target subproject runtime
subdirectory/runtime
