#!/usr/bin/env bash
# Builds the fuzz targets of the serial links and of the G-code readers, and runs them side by side for the given
# number of seconds. New inputs stay in the build folder, and so do one that fails and what each target has written.
set -eu
cd "$(dirname "$0")/.."
seconds="${1:?usage: tools/fuzz.sh SECONDS}"
. tools/packages.sh

in_order "packages" install_missing $packages_to_check
in_order "configure" cmake --preset fuzz
in_order "build" cmake --build --preset fuzz

fuzz() {
    mkdir -p "build-fuzz/found/$1"
    exec "build-fuzz/fuzz/fuzz_$1" -max_total_time="$seconds" -max_len=4096 -timeout=10 -print_final_stats=1 \
        -artifact_prefix="build-fuzz/fuzz_$1-" "build-fuzz/found/$1" "fuzz/corpus/$1" >"build-fuzz/fuzz_$1.log" 2>&1
}

targets="mirror motor gauge gcode_grbl gcode_marlin gcode_omm"
declare -A running
trap 'kill "${running[@]}" 2>/dev/null || true' EXIT
for name in $targets; do
    fuzz "$name" &
    running[$name]=$!
done
for name in $targets; do
    echo "== fuzz_$name for $seconds s"
    status=0
    wait "${running[$name]}" || status=$?
    unset "running[$name]"
    if [ "$status" -ne 0 ]; then
        tail -n 60 "build-fuzz/fuzz_$name.log"
        echo "Failed: fuzz_$name." >&2
        exit 1
    fi
    tail -n 6 "build-fuzz/fuzz_$name.log"
done
echo "No target failed."
