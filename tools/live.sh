#!/usr/bin/env bash
# Starts the workbench and TRAVO on it, on the present display. Both end when TRAVO is closed.
#   tools/live.sh BUILD-FOLDER
set -eu
cd "$(dirname "$0")/.."
build="$(realpath "$1")"
workbench="$build/workbench/travo-workbench"

"$workbench" --program-folder "$build/TRAVO" &
bench=$!
trap 'kill "$bench" 2>/dev/null; wait "$bench" 2>/dev/null || true' EXIT
"$build/workbench/workbench-ask" ready || {
    echo "The workbench does not answer." >&2
    exit 1
}
# The first start finds the needles calibrated; later starts keep what the operator has stored.
[ -e "$build/TRAVO/KVData.ini" ] || "$build/workbench/workbench-ask" "write-settings $build/TRAVO/KVData.ini"
echo "The workbench runs; TRAVO starts on it."
"$build/TRAVO/TRAVO"
