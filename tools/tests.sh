#!/usr/bin/env bash
# Runs all tests of a preset. What has failed is told once more at the end, where a reader of CI looks first.
set -eu
cd "$(dirname "$0")/.."
preset="${1:?usage: tools/tests.sh PRESET}"
report="$(mktemp)"
trap 'rm -f "$report"' EXIT

if ctest --preset "$preset" --output-junit "$report"; then exit 0; fi
# There is no report where no test was begun.
[ ! -s "$report" ] || python3 tools/failed-tests.py "$report"
exit 1
