#!/usr/bin/env bash
# Sets up all that the tests need on Debian 12, builds, and runs every test.
set -eu
cd "$(dirname "$0")"
. tools/packages.sh

in_order "packages" install_missing $packages_to_test
in_order "layout: rings of includes, floors, sizes" python3 tools/house.py
in_order "format" tools/format.sh --check
in_order "configure" cmake --preset default
in_order "build" cmake --build --preset default
in_order "tests" tools/tests.sh default
in_order "tour of the whole workstation" tools/tour.sh build
echo "All tests passed."
