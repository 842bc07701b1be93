#!/usr/bin/env bash
# Brings every source file into the house's format; with --check only says which are not in it.
set -eu
cd "$(dirname "$0")/.."
mode="-i"
[ "${1:-}" = "--check" ] && mode="--dry-run -Werror"
git ls-files -z --cached --others --exclude-standard '*.c' '*.cpp' '*.h' | xargs -0 clang-format $mode
