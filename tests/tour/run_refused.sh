#!/bin/bash
# SPDX-License-Identifier: MIT
# A tour whose level the program refuses must fail with the program's own words and leave no process behind; levels
# and list files that can't be used are refused before anything starts.
# Usage: run_refused.sh FOLDER-OF-PROGRAMS TARGET-FOLDER
set -euo pipefail

bin=$(realpath "$1")
target=$2
cd "$(dirname "$0")"
mkdir -p "$target"
rm -f "$target/tour.log"
header=$'wave\twidth\tbase\ttime\tpulse\trate\tduty\tshape\toutput'
good=$'Single Frequency\t\t7.83\t3:00\tON\t1\t50\tSine\tPositive'

# Takes the tour with the levels on standard input and with the arguments; its words go to $told, its exit code to $code.
take_tour() {
    cat >"$target/levels.tsv"
    code=0
    told=$(PYTHONDONTWRITEBYTECODE=1 PYTHONPATH=../../tools /usr/bin/python3 -m tour "$target" \
        --program "$bin/tessit-control" --emulator "$bin/zephon-emulator" --levels "$target/levels.tsv" "$@" 2>&1) ||
        code=$?
}

# expect WORDS: the last tour failed and said so.
expect() {
    if ((code == 0)) || [[ $told != *"$1"* ]]; then
        printf 'Instead of "%s" the tour ended with %s and said:\n%s\n' "$1" "$code" "$told"
        exit 1
    fi
}

take_tour < <(printf '%s\n%s\n' "wrong header" "$good")
expect "levels.tsv:1: the first line must name the columns"
take_tour < <(printf '%s\nSine\n' "$header")
expect "levels.tsv:2: 1 columns instead of 9"
take_tour < <(printf '%s\n%s\n' "$header" "${good/Sine/Cosine}")
expect 'levels.tsv:2: "Cosine" is no entry of shape'
take_tour < <(echo "$header" && for _ in {1..51}; do echo "$good"; done)
expect "51 levels; a protocol has 1 to 50"
take_tour < <(echo "$header")
expect "0 levels; a protocol has 1 to 50"
echo none >"$target/list.csv"
take_tour --list "$target/list.csv" < <(printf '%s\n%s\n' "$header" "$good")
expect "list.csv: there is no frequency in it"
printf '7.83\n999999, 1000000.5\n' >"$target/list.csv"
take_tour --list "$target/list.csv" < <(printf '%s\n%s\n' "$header" "$good")
expect 'list.csv:2: the frequency "1000000.5" is above 999999'
[[ ! -e $target/tour.log ]] || { echo "A tour was started" && exit 1; }

take_tour < <(printf '%s\n%s\n%s\n' "$header" "$good" "${good/7.83/abc}")
expect 'the program says: "Invalid frequency entered"'
grep -q 'Invalid frequency entered' "$target/tour.log"
compgen -G "$target/*-failure.png" >/dev/null
