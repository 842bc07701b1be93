#!/usr/bin/env bash
# Builds and runs the benchmarks, each beside its peer; installs the peers.
set -eu
cd "$(dirname "$0")"
. tools/packages.sh

in_order "packages" install_missing $packages_to_bench
in_order "configure" cmake --preset bench
in_order "build" cmake --build --preset bench
for program in build-bench/benchmarks/*Bench; do
    in_order "$(basename "$program")" "$program" --benchmark_counters_tabular=true
done
