#!/usr/bin/env bash
# Runs the programs on the measurements in Apps/data. The argument is the build folder; ./kv demo passes it.
set -euo pipefail

# A private folder for sockets and files, so that no other program takes part.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_RUNTIME_DIR=$work KORVEL_INI=$work/KORVEL.INI

build=$(realpath "${1:?usage: demo.sh BUILD_DIR}")
kvcolor=$build/Apps/kvcolor
cd "$(dirname "$(realpath "$0")")/data"

# run TITLE SENTENCE ARGUMENT...: runs kvcolor below a sentence on what a print engineer reads from the result.
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
    'Compare these numbers with a proof; the neutral patch shows how far grey is from a* = b* = 0.' \
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
    difference chart24-lab-b.csv --standard chart24-lab-a.csv --formula cielab,dL,dC,dH,cmc

run 'Metamerism: would a match with the middle grey hold under other lamps?' \
    'Below 0.5 it holds, as for the greys; a brown corrected to that grey would part from it at once.' \
    metamerism chart24-lab-a.csv --standard 'neutral 5 (.70 D)' --only 'neutral*,dark skin' \
    --reference D65 --test A --test F11

run 'Colour strength: the series relative to its solid' \
    'Ink on half the dots has far less than half the strength: what a recipe for a tint has to start from.' \
    strength ink-series.txt --paper 0 --solid 100 --model all --only '0,25,50,80,100'

# The measuring server replays the chart named in the suite's ini file; the first message starts it.
printf '[HQM-Server]\nMeasurements=%s\n' "$PWD/chart24-lab-a.csv" >"$KORVEL_INI"
sockets=$work/kvutils-dde
fail() {
    echo "demo.sh: $*" >&2
    exit 1
}
running() { find "$sockets" -type s 2>/dev/null | wc -l; }

run 'Messages: a chart through the measuring server' \
    'No server is running: the first message starts HQMSERV, which then measures 24 patches.' \
    measure "$work/measured.dat"
printf '%s samples in the data file; programs that receive messages: %s\n' \
    "$(grep -c '^\[Sample\]' "$work/measured.dat")" "$(running)"

run 'Messages: the measurement, compared with its source' \
    'All differences are 0: messages and file preserve every bit of a reflectance.' \
    difference "$work/measured.dat" --standard chart24-lab-a.csv --formula cielab,cmc --only "$patches"

for file in "$work/measured.dat" chart24-lab-a.csv; do
    "$kvcolor" convert "$file" --format csv --quiet | cut -d , -f 1-13
done | sort | uniq -c | awk '$1 != 2 { different = 1 } END { exit different }' ||
    fail 'the measurement differs from the chart'
for _ in $(seq 100); do
    [ "$(running)" != 0 ] || break
    sleep 0.1
done
[ "$(running)" = 0 ] || fail 'the server still runs without a client'
printf '\nAll 24 rows agree in every digit, and the server exited after its last client.\n'

# The measurement in the workbench.
pictures=$build/demo
mkdir -p "$pictures"
"$build/Apps/ColourDesk" "$work/measured.dat" --language en --standard 'neutral 5 (.70 D)' --cursor 550 \
    --select 'light skin,blue,red,cyan' --screenshot "$pictures/colourdesk.png" --plot "$pictures/plot.png"
"$kvcolor" report "$work/measured.dat" --out "$pictures/report.pdf" --force --standard 'neutral 5 (.70 D)' --quiet \
    --curves 'light skin' --curves blue --curves red --curves cyan --tolerance 40
printf '\n== ColourDesk: the same chart in the workbench, its plot, and a report on it\n   %s\n   %s\n   %s\n' \
    "$pictures/colourdesk.png" "$pictures/plot.png" "$pictures/report.pdf"
