#!/usr/bin/env bash
# Draws every picture of skin/ anew. A change of the palette is one line of pen.py, then this.
# Needs the Debian packages python3-fonttools and fonts-open-sans. PYTHON names another interpreter.
set -eu
cd "$(dirname "$0")"
target="${1:-../../skin}"
export PYTHONDONTWRITEBYTECODE=1
mkdir -p "$target"
rm -f "$target"/*.svg
"${PYTHON:-/usr/bin/python3}" emit.py "$target"
