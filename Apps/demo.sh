#!/usr/bin/env bash
# kvcolor at work on the measurements in Apps/data. The argument is the build folder; ./kv demo gives it.
set -euo pipefail

kvcolor=$(realpath "${1:?usage: demo.sh BUILD_DIR}")/Apps/kvcolor
cd "$(dirname "$(realpath "$0")")/data"

# run TITLE SENTENCE ARGUMENT...: one call of kvcolor under what a print engineer reads from it.
run() {
    printf '\n== %s\n   %s\n' "$1" "$2"
    shift 2
    printf '   $ kvcolor'
    local argument
    for argument in "$@"; do
        case $argument in
            *[!a-zA-Z0-9.:,_-]*) printf " '%s'" "$argument" ;;
            *) printf ' %s' "$argument" ;;
        esac
    done
    printf '\n\n'
    "$kvcolor" "$@" --quiet
}

patches='light skin,blue,red,cyan,neutral 5*'

run 'Conversion: a test chart in the light booth' \
    'These are the numbers to compare with a proof; the neutral patch shows how far grey is from a* = b* = 0.' \
    convert chart24-lab-a.csv --only "$patches"

run 'Conversion: the same patches under a lamp at home' \
    'Reds turn lighter and blues darker: a reprint has to match under the light that it is sold in.' \
    convert chart24-lab-a.csv --only "$patches" --illuminant A

run 'Density and dot area: a tone value series of one ink' \
    'The red filter reads a cyan-like ink; area less the tone value in the file is the dot gain.' \
    density ink-series.txt --paper 0 --solid 100 --only '0,10,25,50,70,80,90,100'

run 'Density: the solid under every standard' \
    'One print, five readings through the red filter: a density without its standard cannot be compared.' \
    density ink-series.txt --paper 0 --all --only 100

run 'Difference: one chart, two laboratories' \
    'A tolerance below these differences would judge the measurement and not the print.' \
    difference chart24-lab-b.csv --standard chart24-lab-a.csv --measure cielab,dL,dC,dH,cmc

run 'Metamerism: would a match with the middle grey hold under other lamps?' \
    'Below 0.5 it holds, as for the greys; a brown corrected to that grey would part from it at once.' \
    metamerism chart24-lab-a.csv --standard 'neutral 5 (.70 D)' --only 'neutral*,dark skin' \
    --reference D65 --test A --test F11

run 'Colour strength: the series relative to its solid' \
    'Ink on half the dots has far less than half the strength: what a recipe for a tint has to start from.' \
    strength ink-series.txt --paper 0 --solid 100 --model all --only '0,25,50,80,100'
