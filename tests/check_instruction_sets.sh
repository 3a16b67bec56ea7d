#!/usr/bin/env bash
# usage: check_instruction_sets.sh TARGET TIER OBJECT...
# Disassembles the objects of one tier (A-sse: tier A of i386 without SSE2) and fails on an instruction that the tier's level does not have, on XMM8 to
# XMM15 (x86-64: the caller's), and on weak symbols (code that the linker would share between tiers).
set -euo pipefail
target=$1 tier=$2
shift 2

sse3='addsubp[sd]|haddp[sd]|hsubp[sd]|lddqu|movddup|movs[hl]dup|fisttp[sl]*'
ssse3='pabs[bwd]|palignr|ph(add|sub)(w|d|sw)|pmaddubsw|pmulhrsw|pshufb|psign[bwd]'
sse41='p?blendv?[a-z]*|dpp[sd]|extractps|insertps|movntdqa|mpsadbw|packusdw|pcmpeqq|pextr[bdq]|phminposuw|pinsr[bdq]'
sse41+='|p(max|min)(sb|sd|ud|uw)|pmov[sz]x[a-z]*|pmuldq|pmulld|ptest|round[ps][sd]'
later='pcmpgtq|pcmp[ei]str[im]|crc32[bwlq]*|popcnt[wlq]*|lzcnt[wlq]*|tzcnt[wlq]*|v[a-z0-9]+|mulx[lq]*|andn[lq]*|s[ah][rl]x[lq]*|movbe[a-z]*'
sse2='mov[dq]|mov[au]pd|mov[hl]pd|movsd|movmskpd|movnt(dq|pd|i)|movdq[au]|movdq2q|movq2dq|maskmovdqu|[lm]fence|clflush'
sse2+='|(add|sub|mul|div|sqrt|min|max)[sp]d|(and|andn|or|xor)pd|cmp[a-z]*[sp]d|u?comisd|shufpd|unpck[hl]pd'
sse2+='|cvtt?[sp]d2[a-z]*|cvt(t?ps|ss|si|pi)2(sd|pd|dq)l?|cvtdq2p[sd]'
mmx='p(abs|add|sub|and|avg|cmp|extr|insr|madd|max|min|mov|mul|or|xor|sad|shuf|sll|srl|sra|unpck|ack)[a-z]*|emms|cvtt?p[sd]2pi|cvtpi2p[sd]|maskmovq|movntq'
case $tier in
    A-sse) forbidden="$sse2|$mmx|$sse3|$ssse3|$sse41|$later" ;;
    A | J | common) forbidden="$sse3|$ssse3|$sse41|$later" ;;
    L) forbidden="$ssse3|$sse41|$later" ;;
    N) forbidden="$later" ;;
    *) echo "no tier $tier" >&2; exit 2 ;;
esac
# verr and verw are old system instructions, not AVX; they never appear here and need no exception.

# disassembly of objects -> lines "file: mnemonic operands" that break a rule
offences() {
    objdump --disassemble --no-show-raw-insn --no-addresses "$@" | awk -v forbidden="^($forbidden)$" -v target="$target" '
        /file format/ { file = $1 }
        /^\t/ {
            instructions++
            name = $1
            if (name ~ /^(lock|rep|repz|repnz|notrack|bnd)$/) name = $2
            if (name ~ forbidden) print file, $0
            if (target == "x86_64" && $0 ~ /%xmm(8|9|1[0-5])/) print file, $0
        }
        END { if (instructions == 0) print "no instructions found" }'
}

# The check itself must see each offence.
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
offenders=('vaddps %ymm0, %ymm1, %ymm2')
if [ "$tier" = A-sse ]; then
    offenders+=('addpd %xmm0, %xmm1' 'movd %xmm0, %eax' 'pand %xmm0, %xmm1' 'cvtps2dq %xmm0, %xmm1' 'cvtss2sd %xmm0, %xmm1'
                'cvtsi2sdl %eax, %xmm0' 'cvttsd2si %xmm0, %eax' 'movsd %xmm0, (%eax)' 'cmpltpd %xmm0, %xmm1' 'emms'
                'cvttps2pi %xmm0, %mm0' 'pshufd $0, %xmm0, %xmm1' 'movq %mm0, (%eax)')
fi
for offender in "${offenders[@]}"; do
    printf '%s\n' "$offender" | as --"$([ "$target" = x86_64 ] && echo 64 || echo 32)" -o "$scratch/offender.o"
    if [ -z "$(offences "$scratch/offender.o")" ]; then
        echo "the check does not see: $offender" >&2
        exit 1
    fi
done

status=0
found=$(offences "$@")
if [ -n "$found" ]; then
    printf 'tier %s:\n%s\n' "$tier" "$found" >&2
    status=1
fi
weak=$(nm "$@" | awk '/^.*:$/ { file = $1 } $2 ~ /^[VvWw]$/ || $1 ~ /^[Ww]$/ { print file, $0 }')
if [ -n "$weak" ]; then
    printf 'weak symbols in tier %s:\n%s\n' "$tier" "$weak" >&2
    status=1
fi
exit $status
