#!/usr/bin/env bash
# Sets up all that the tests need on Debian 12, builds, and runs every test.
set -eu
cd "$(dirname "$0")"
. tools/packages.sh

in_order "packages" install_missing $packages_to_test
in_order "layout: rings of includes, floors, sizes" python3 tools/house.py
in_order "format" tools/format.sh --check
in_order "configure" cmake --preset default
in_order "build of the programs" cmake --build --preset default --target programs
in_order "first window" python3 tools/first-window.py build
tell_time "to the first window"
in_order "build" cmake --build --preset default
in_order "tests" tools/tests.sh default
in_order "tour of the whole workstation" tools/tour.sh build
tell_time "all tests"
in_order "loop of daily work" tools/loop.sh build
echo "All tests passed."
