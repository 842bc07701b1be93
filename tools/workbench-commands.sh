#!/usr/bin/env bash
# Writes the list of commands in docs/workbench.md anew, from the table that the workbench itself goes by.
#   tools/workbench-commands.sh BUILD-FOLDER
set -eu
build="$(realpath "$1")"
cd "$(dirname "$0")/.."
page=docs/workbench.md
list="$("$build/workbench/workbench-ask" help --markdown)"
{
    sed '/^<!-- commands -->$/q' "$page"
    echo
    printf '%s\n\n' "$list"
    sed -n '/^<!-- end of commands -->$/,$p' "$page"
} >"$page.new"
mv -f "$page.new" "$page"
