#!/usr/bin/env bash
# usage: check_sse_reachable.sh COMMON_OBJECT... -- OBJECT...
# The second objects are tier A of i386 without SSE2 (instruction_set.A-sse looks at their code). Fails if they call
# anything but each other and the dispatchers of scalar routines, or if a dispatcher, a masked entry or an alias other
# than those of double2 functions has an SSE2 instruction.
set -euo pipefail
common=()
while [ "$1" != -- ]; do
    common+=("$1")
    shift
done
shift

defined_in() { nm --defined-only "$@" | awk 'NF == 3 { print $3 }' | sort -u; }
code_in() { nm --defined-only "$@" | awk '$2 == "T" || $2 == "t" { print $3 }' | sort -u; }
used_by() { nm --undefined-only "$@" | awk 'NF == 2 { print $2 }' | sort -u; }

status=0
outside=$(comm -23 <(used_by "$@") <(defined_in "$@"))
if [ -z "$outside" ]; then
    echo "the objects use nothing from outside: not even tables" >&2
    exit 1
fi
unknown=$(comm -23 <(echo "$outside") <(defined_in "${common[@]}" | sort -u - <(echo _GLOBAL_OFFSET_TABLE_)))
calls=$(comm -12 <(echo "$outside") <(code_in "${common[@]}") | grep -v '_scalar$\|^internal_cexp$' || true)
if [ -n "$unknown$calls" ]; then
    printf 'reachable from tier A without SSE2, but not of it:\n%s\n' "$unknown$calls" >&2
    status=1
fi

# The only such instruction in use there is movmskpd, which reads the mask of two lanes.
misplaced=$(objdump --disassemble --no-show-raw-insn --no-addresses "${common[@]}" | awk '
    /^<.*>:$/ { name = substr($1, 2, length($1) - 3) }
    /^\t/ { instructions++ }
    /^\t[a-z0-9]*(pd|sd|dq[a-z0-9]*)( |$)|^\tmov[dq] |^\tp(and|or|xor|cmp|add|sub|shuf)[a-z]* / {
        if ($1 == "movmskpd") seen++
        if (name !~ /2_mask$|^ropd.*Mask$/ || name ~ /[^r]f2_mask$/) print name, $0 # erf2 is on double2
    }
    END { if (instructions == 0 || seen == 0) print "no instructions found" }')
if [ -n "$misplaced" ]; then
    printf '%s\n' "$misplaced" >&2
    status=1
fi
exit $status
