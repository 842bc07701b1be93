#!/usr/bin/env bash
# The desk: the workbench and TRAVO on it, on the present display. It ends when both windows are closed:
# whichever is closed first leaves the other one open. TRAVO runs on a session bus of its own, on which the
# workbench's camera program can be started; the user's own bus and configuration stay as they are.
#   tools/live.sh BUILD-FOLDER
set -eu
cd "$(dirname "$0")/.."
build="$(realpath "$1")"
own="$(mktemp -d)"
bench=""
finish() {
    [ -z "$bench" ] || { kill "$bench" 2>/dev/null; wait "$bench" 2>/dev/null || true; }
    rm -rf "$own"
}
trap finish EXIT

"$build/workbench/travo-workbench" --program-folder "$build/TRAVO" &
bench=$!
"$build/workbench/workbench-ask" ready || {
    echo "The workbench does not answer." >&2
    exit 1
}
# The first start finds the needles calibrated, the ports known and the windows apart; later starts keep what
# the operator has stored.
[ -e "$build/TRAVO/KVData.ini" ] || "$build/workbench/workbench-ask" as-new
tools/live-service.sh "$own" "$build/TRAVO" >/dev/null
echo "The workbench runs; TRAVO starts on it."
code=0
XDG_DATA_DIRS="$own:${XDG_DATA_DIRS:-/usr/local/share:/usr/share}" \
    dbus-run-session -- "$build/TRAVO/TRAVO" || code=$?
# What TRAVO has done is still to be looked at, and the last step of the first ten minutes is closing it.
! kill -0 "$bench" 2>/dev/null || echo "TRAVO has ended; the workbench stays until its window is closed."
wait "$bench" || [ "$code" -ne 0 ] || code=$?
bench=""
exit "$code"
