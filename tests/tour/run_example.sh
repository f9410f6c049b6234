#!/bin/bash
# SPDX-License-Identifier: MIT
# Takes the tour with its example levels and list and compares the files that it leaves with literals that were worked out by
# hand. Usage: run_example.sh FOLDER-OF-PROGRAMS TARGET-FOLDER
set -euo pipefail

bin=$(realpath "$1")
target=$2
cd "$(dirname "$0")"

PYTHONDONTWRITEBYTECODE=1 PYTHONPATH=../../tools /usr/bin/python3 -m tour "$target" \
    --program "$bin/tessit-control" --loopback "$bin/tessit-control-loopback" --emulator "$bin/zephon-emulator"

# The records of a protocol file, a line each.
records() {
    od -A n -v -t x1 -w12 "$1" | sed 's/^ //'
}

# The lines of a printed page that are not blank, with single blanks between their words.
page_lines() {
    pdftotext -layout "$1" - | tr -d '\f' | sed -e 's/  */ /g; s/^ //; s/ $//; /^$/d'
}

# A mail without what differs from day to day and from version to version.
mail_lines() {
    local time='[0-9]{1,2} [A-Z][a-z]{2} [0-9]{4} [0-9]{2}:[0-9]{2}:[0-9]{2} [+-][0-9]{4}'
    tr -d '\r' <"$1" | sed -E -e "1s/^Date: [A-Z][a-z]{2}, $time\$/Date: as sent/" -e 's/(version  )[0-9.]+$/\1N/'
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
for window in list composer editor reading; do
    page_lines "$target/$window.pdf" | diff -u "example/$window-page.txt" - || status=1
done
for form in feedback contact online-help; do
    mail_lines "$target/$form.eml" | diff -u "example/$form-mail.txt" - || status=1
done

# Each Qt draws icons and spaces text in its own way; the pictures show that of Debian 12.
qt=$(ldd "$bin/tessit-control" | sed -n 's/.*libQt6Core.so.6 => \([^ ]*\) .*/\1/p' | xargs readlink -f)
if [[ $qt == *.so.6.4.* ]]; then
    ../../tools/pictures --check "$target" || status=1
else
    echo "The pictures were taken with Qt 6.4, and this is ${qt##*/}: they are not compared."
fi
exit $status
