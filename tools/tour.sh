#!/usr/bin/env bash
# Plays the tour of a build folder on a display, a session bus and folders of its own.
#   tools/tour.sh BUILD-FOLDER [--only instruments|panels|calibration|windows]
set -eu
cd "$(dirname "$0")/.."
build="$(realpath "$1")"
shift
own="$(mktemp -d)"
trap 'rm -rf "$own"' EXIT
mkdir -m 700 "$own/runtime" "$own/data" "$own/config"
cp -a "$build/TRAVO" "$own/TRAVO"

export XDG_RUNTIME_DIR="$own/runtime" XDG_DATA_HOME="$own/data" XDG_CONFIG_HOME="$own/config"
unset WAYLAND_DISPLAY QT_QPA_PLATFORM
# The bus of the tour can start the camera program.
tools/live-service.sh "$own/services" "$own/TRAVO" >"$own/service-file"
export XDG_DATA_DIRS="$own/services:${XDG_DATA_DIRS:-/usr/local/share:/usr/share}"
pictures="$build/pictures"
rm -rf "$pictures"
status=0
xvfb-run -a -s "-screen 0 2560x1600x24 -nolisten tcp" dbus-run-session -- \
    tools/with-window-manager.sh "$build/workbench/tour/tour" "$@" "$own/TRAVO" "$build/workbench/travo-workbench" "$pictures" ||
    status=$?
echo "Pictures: $pictures"
exit $status
