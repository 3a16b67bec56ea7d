#!/usr/bin/env bash
# usage: scripts/plot_accuracy.sh STATE DIRECTORY
# Draws the errors that zelk-accuracy has kept in STATE as DIRECTORY/<family>.svg: a panel for each function, a line
# for each tier that differs, the largest error against the magnitude of the argument.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
state=$1
results=$2

# The part of a curve that shows something: between 1e-10 and 1e12, within a decade of the errors above 0.01 ulp.
range_of() {
    awk '$1 >= 1e-10 && $1 <= 1e12 && $2 > 0.01 { if (!low || $1 < low) low = $1; if ($1 > high) high = $1 }
         END { if (!low) { low = 1e-4; high = 1e4 } printf "[%g:%g]", low / 1.2, high * 1.2 }' "$@"
}

while IFS=$'\t' read -r file title entries; do
    panels=()
    for entry in $entries; do
        grep -q -v ' 0.0000$' "$state/$entry".*.curve 2>/dev/null && panels+=("$entry")
    done
    [ ${#panels[@]} -gt 0 ] || continue
    columns=2
    [ ${#panels[@]} -gt 1 ] || columns=1
    rows=$(((${#panels[@]} + columns - 1) / columns))
    {
        echo "set terminal svg size 900,$((rows * 230 + 50)) font 'sans-serif,12' background 'white'"
        echo "set output '$results/$file.svg'"
        echo "set multiplot layout $rows,$columns title '$title: largest error in ulp against the magnitude of the argument'"
        echo "set logscale x; set format x '1e%L'; unset mxtics; set grid linecolor '#dddddd'; set yrange [0:*]"
        echo "set key at graph 1,1.13 horizontal samplen 1.5; set tics font ',10' scale 0.6"
        echo "set lmargin 6; set rmargin 2; set tmargin 2.5; set bmargin 2"
        for entry in "${panels[@]}"; do
            lines=()
            drawn=()
            colors=(A "'#c05020' linewidth 2.2" J "'#40a040' linewidth 1.6" L "'#2060b0' linewidth 1.1" N "'#707070' linewidth 1")
            for ((i = 0; i < ${#colors[@]}; i += 2)); do
                curve=$state/$entry.${colors[i]}.curve
                [ -e "$curve" ] || continue
                for other in "${drawn[@]}"; do
                    cmp -s "$curve" "$other" && continue 2
                done
                drawn+=("$curve")
                lines+=("'$curve' with lines linecolor rgb ${colors[i + 1]} title 'tier ${colors[i]}'")
            done
            [ ${#drawn[@]} -gt 1 ] || lines[0]=${lines[0]/%tier ?\'/all tiers\'}
            echo "set title '$entry' offset 0,-0.7"
            echo "plot $(range_of "$state/$entry".*.curve) $(IFS=,; echo "${lines[*]}")"
        done
        echo "unset multiplot"
    } | gnuplot
done < <(build/x86_64/bin/zelk-accuracy --families)
