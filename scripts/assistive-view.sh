#!/usr/bin/env bash
# assistive-view.sh QUORVEL DEMOHOST: starts the sample host and the program in a window under Xvfb
# and reads it from outside, as a screen reader does (scripts/assistive_view.py).
set -euo pipefail
quorvel="$(realpath "$1")"
demohost="$(realpath "$2")"
here="$(dirname "$(realpath "$0")")"

if [ -z "${QUORVEL_ASSISTIVE_INSIDE:-}" ]; then
  export QUORVEL_ASSISTIVE_INSIDE=1
  exec timeout 100 xvfb-run -a -s "-screen 0 1280x1024x24" dbus-run-session -- "$0" "$quorvel" "$demohost"
fi

work="$(mktemp -d)"
host=""
client=""
finish() {
  [ -n "$client" ] && kill "$client" 2>/dev/null
  [ -n "$host" ] && kill "$host" 2>/dev/null
  wait 2>/dev/null
  rm -rf "$work"
}
trap finish EXIT
export QUORVEL_HOME="$work/home" XDG_RUNTIME_DIR="$work" XDG_CONFIG_HOME="$work/config"

"$demohost" --port 0 --data "$work/sample.sqlite" >"$work/host.log" &
host=$!
for _ in $(seq 200); do grep -q '^listening on ' "$work/host.log" && break; sleep 0.1; done
address="$(sed -n 's/^listening on //p' "$work/host.log" | head -n 1)"
printf '[TELNET]\nHostName=%s\nQuickExit=0\n[LOGIN]\nUserId=demo\nPwd=demo\n[BUTTONS]\nCommand0=^[13]\nLabel0=Enter\n' \
  "$address" >"$work/sample.inf"

export QT_QPA_PLATFORM=xcb QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 QUORVEL_A11Y_IDS=1
"$quorvel" "$work/sample.inf" >"$work/client.log" 2>&1 &
client=$!
/usr/bin/python3 "$here/assistive_view.py" "$client" || { cat "$work/client.log" >&2; exit 1; }
