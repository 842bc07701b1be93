#!/usr/bin/env bash
# Says whether skin/ is, byte for byte, what the generator draws. Needs what make.sh needs.
set -eu
cd "$(dirname "$0")"
drawn=$(mktemp -d)
trap 'rm -rf "$drawn"' EXIT
./make.sh "$drawn" >/dev/null
if diff -rq "$drawn" ../../skin; then
    echo "skin/ is what tools/skin draws."
else
    echo "skin/ is not what tools/skin draws: run tools/skin/make.sh, or undo the change by hand." >&2
    exit 1
fi
