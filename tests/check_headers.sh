#!/bin/sh
# Every public header on its own: compiled without a warning by the given compiler in C99 and C++17, as strict as a
# program may ask for, and under -ffast-math.
# usage: check_headers.sh INCLUDE_DIRECTORY C_COMPILER CXX_COMPILER [flag...]
set -eu
include=$1
cc=$2
cxx=$3
shift 3
strict="-Wall -Wextra -pedantic -Wconversion -Wshadow -Wundef -Werror -msse2 -fsyntax-only"
cd "$include"
for header in zelk/*.h; do
    for math in -ffast-math; do
        # shellcheck disable=SC2086
        echo "#include \"$header\"
            int used;" | $cc "$@" -std=c99 $strict $math -Wstrict-prototypes -I. -xc -
        # shellcheck disable=SC2086
        echo "#include \"$header\"" | $cxx "$@" -std=c++17 $strict $math -I. -xc++ -
    done
done
for header in zelk/*.hpp; do
    for standard in c++17; do
        # shellcheck disable=SC2086
        echo "#include \"$header\"" | $cxx "$@" -std=$standard $strict -I. -xc++ -
    done
done
