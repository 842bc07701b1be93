#!/usr/bin/env bash
# Builds the fuzz targets of the serial links and runs each for the given number of seconds, one after
# another. New inputs stay in the build folder; one that fails is written there and ends the run.
set -eu
cd "$(dirname "$0")/.."
seconds="${1:?usage: tools/fuzz.sh SECONDS}"
. tools/packages.sh

in_order "packages" install_missing $packages_to_check
in_order "configure" cmake --preset fuzz
in_order "build" cmake --build --preset fuzz
for name in mirror motor gauge; do
    mkdir -p "build-fuzz/found/$name"
    in_order "fuzz_$name for $seconds s" \
        "build-fuzz/fuzz/fuzz_$name" -max_total_time="$seconds" -max_len=4096 -timeout=10 -print_final_stats=1 \
        -artifact_prefix="build-fuzz/fuzz_$name-" "build-fuzz/found/$name" "fuzz/corpus/$name"
done
echo "No target failed."
