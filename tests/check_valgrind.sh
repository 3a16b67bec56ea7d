#!/usr/bin/env bash
# usage: check_valgrind.sh SPECIAL_VALUES_TEST
# All kernels on special arguments in every lane under memcheck: no branch or address may depend on what was never
# written. Results are not compared: valgrind computes in 64 bits where the x87 has 80, and raises no flags.
set -euo pipefail
valgrind --quiet --error-exitcode=99 --track-origins=yes "$1" --calls
