#!/usr/bin/env bash
# Times the daily loop: from a changed source of a panel to the verdict of its tests. The build folder must be up to date.
#   tools/loop.sh BUILD-FOLDER
set -eu
cd "$(dirname "$0")/.."
build="$1"
touch src/experiment/view/CtlExperiment2.cpp
begin=$(date +%s%N)
cmake --build "$build" --target test_experiment >/dev/null
built=$(date +%s%N)
QT_QPA_PLATFORM=offscreen "$build/tests/experiment/test_experiment" --gtest_brief=1
end=$(date +%s%N)
echo "One source of the experiment panel changed: built after $(((built - begin) / 1000000)) ms, verdict after $(((end - begin) / 1000000)) ms."
