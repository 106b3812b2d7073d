#!/usr/bin/env bash
# scripts/soak.sh [SECONDS [OPTION...]]: a scripted operator works at the sample host in the real
# windows, without a display, for that long (1800 by default): menus, screens, lists, reports, help,
# pictures, lost links and new sessions. A line of figures a minute: resident memory, heap, handles,
# windows. Status 1 if a story does not reach its end, or if a figure at the end is more than 5 %
# above what it was after the first minute. More options: build/release/src/app/quorvel-soak --help
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh

install_packages
build release quorvel-soak quorvel-demohost
# The offscreen platform has no window manager and says so at every turn.
build/release/src/app/quorvel-soak --host build/release/demohost/quorvel-demohost \
  --seconds "${1:-1800}" --picture build/soak-stuck.png "${@:2}" \
  2> >(grep -v '^This plugin does not support' >&2)
