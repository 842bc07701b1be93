#!/usr/bin/env bash
# Sets up all that the program needs on Debian 12, builds it, and starts it on the workbench's
# simulated instruments. Without a display it plays the tour instead.
set -eu
cd "$(dirname "$0")"
. tools/packages.sh

in_order "packages" install_missing $packages_to_run
in_order "configure" cmake --preset default -DTRAVO_TESTS=OFF -B build-run
in_order "build" cmake --build build-run --target programs
if [ -z "${DISPLAY:-}" ]; then
    echo "There is no display, so the tour plays the operator on a virtual one."
    in_order "build of the tour" cmake --build build-run --target tour
    in_order "tour of the whole workstation" tools/tour.sh build-run
    exit 0
fi
in_order "workbench and program" tools/live.sh build-run
