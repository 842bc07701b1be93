#!/usr/bin/env bash
# clang-tidy on every file: the program, the workbench, the tests, the benchmarks and the fuzz targets.
# Each finding fails the build. It takes an hour or more on two cores, so it is run by hand.
set -eu
cd "$(dirname "$0")/.."
. tools/packages.sh

in_order "packages" install_missing $packages_to_tidy
in_order "configure" cmake --preset tidy
in_order "build with clang-tidy" cmake --build --preset tidy
echo "No finding."
