#!/usr/bin/env bash
# bench/window.sh [PART]: the benchmark of the whole road, with a window of its own on Xvfb (window.py).
set -euo pipefail
cd "$(dirname "$0")/.."
exec xvfb-run -a -s "-screen 0 1280x1024x24" /usr/bin/python3 bench/window.py "$PWD/build/release/src/app/quorvel" "$@"
