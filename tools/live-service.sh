#!/usr/bin/env bash
# Makes the live camera program startable on a session bus, without touching the user's own folders:
# writes the service file TRAVOLive.Live.service for a private folder of bus services.
#   tools/live-service.sh FOLDER PROGRAM-FOLDER
# The file goes to FOLDER/dbus-1/services; a bus whose XDG_DATA_DIRS begins with FOLDER finds it there.
# PROGRAM-FOLDER holds the program TRAVOLive. Prints the path of the file.
set -eu
[ $# -eq 2 ] || {
    echo "usage: $0 FOLDER PROGRAM-FOLDER" >&2
    exit 2
}
template="$(dirname "$0")/../workbench/live/TRAVOLive.Live.service.in"
program="$(realpath -m "$2")/TRAVOLive"
[ -x "$program" ] || {
    echo "There is no program $program." >&2
    exit 1
}
case "$program" in
*[\"\\\`\$]*)
    echo "The path holds a sign that a service file cannot: $program" >&2
    exit 1
    ;;
esac
mkdir -p "$1/dbus-1/services"
service="$(realpath "$1")/dbus-1/services/TRAVOLive.Live.service"
# Written whole before it takes its name: a bus may look at any time.
while IFS= read -r line; do
    printf '%s\n' "${line//@PROGRAM@/$program}"
done <"$template" >"$service.new"
mv -f "$service.new" "$service"
echo "$service"
