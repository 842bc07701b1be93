#!/usr/bin/env bash
# Runs a command beside a window manager on the present display, which ends with it.
#   tools/with-window-manager.sh COMMAND...
set -eu
openbox --sm-disable &
manager=$!
trap 'kill "$manager" 2>/dev/null; wait "$manager" 2>/dev/null || true' EXIT
"$@"
