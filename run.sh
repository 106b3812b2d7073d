#!/usr/bin/env bash
# Builds the program and starts it on the sample host.
#   ./run.sh              a session in a window (without a display: the tour)
#   ./run.sh --tour DIR   no display needed: a scripted user leaves one picture a step in DIR
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh

tour=""
case "${1:-}" in
  "") ;;
  --tour)
    tour="${2:?usage: ./run.sh --tour DIR}"
    ;;
  *)
    echo "usage: ./run.sh [--tour DIR]" >&2
    exit 2
    ;;
esac
if [ -z "$tour" ] && [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  tour="build/tour"
  echo "There is no display here: taking the tour instead, pictures in $tour."
fi

install_packages
build release quorvel quorvel-tour quorvel-demohost

# Its own place for the tour, so that it never touches the user's files. Some pictures show its
# name: QUORVEL_TOUR_HOME gives one that is the same every time.
work="$(mktemp -d)"
host=""
finish() {
  [ -n "$host" ] && kill "$host" 2>/dev/null && wait "$host" 2>/dev/null
  rm -rf "$work"
}
trap finish EXIT
[ -n "$tour" ] && export QUORVEL_HOME="${QUORVEL_TOUR_HOME:-$work/home}"

build/release/demohost/quorvel-demohost --port 0 ${tour:+--data "$QUORVEL_HOME/sample.sqlite"} >"$work/host.log" &
host=$!
for _ in $(seq 100); do
  grep -q '^listening on ' "$work/host.log" && break
  kill -0 "$host" 2>/dev/null || { echo "The sample host did not start:" >&2; cat "$work/host.log" >&2; exit 1; }
  sleep 0.1
done
address="$(sed -n 's/^listening on //p' "$work/host.log" | head -n 1)"

cat >"$work/sample.inf" <<INF
[TELNET]
HostName=$address
TermType=4
Rows=32
QuickExit=0
CutAtFrames=1
[LOGIN]
UserId=demo
Pwd=demo
[BUTTONS]
Command0=^[13]
Label0=Enter
[MAINFORM]
Caption=Quorvel GUI
INF

if [ -n "$tour" ]; then
  # A screen as operators have it: the platform's own is 800 pixels wide, less than the main window.
  echo '{"screens": [{"name": "tour", "x": 0, "y": 0, "width": 1920, "height": 1080,
    "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]}' >"$work/screen.json"
  QT_QPA_PLATFORM="offscreen:configfile=$work/screen.json" build/release/src/app/quorvel-tour "$tour" "$work/sample.inf"
else
  build/release/src/app/quorvel "$work/sample.inf"
fi
