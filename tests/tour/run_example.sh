#!/bin/bash
# SPDX-License-Identifier: MIT
# Takes the tour with its example levels and list and compares the files that it leaves with literals that were worked out by
# hand. Usage: run_example.sh FOLDER-OF-PROGRAMS TARGET-FOLDER
set -euo pipefail

bin=$(realpath "$1")
target=$2
cd "$(dirname "$0")"

PYTHONDONTWRITEBYTECODE=1 PYTHONPATH=../../tools /usr/bin/python3 -m tour "$target" \
    --program "$bin/tessit-control" --emulator "$bin/zephon-emulator"

# The records of a protocol file, a line each.
records() {
    od -A n -v -t x1 -w12 "$1" | sed 's/^ //'
}

status=0
records "$target/protocol.zp2" | diff -u example/protocol.hex - || status=1
diff -u example/table.tsv "$target/table.tsv" || status=1
diff -u example/bank.hex "$target/bank.hex" || status=1
for left in list.txt duplicates.txt primes.tsv bank8.hex; do
    diff -u "example/$left" "$target/$left" || status=1
done
records "$target/composed.zp2" | diff -u example/composed.hex - || status=1
diff -u example/readback.tsv "$target/readback.tsv" || status=1
tr '\r' '\n' <"$target/protocol.tab" | diff -u example/protocol-tab.txt - || status=1
../../tools/pictures --check "$target" || status=1
exit $status
