#!/usr/bin/env bash
# scripts/try-packages.sh [PICTURE]: as root: installs the Debian packages on a fresh minimal Debian 12
# (made by debootstrap in a temporary folder) and starts the installed client there on the installed
# sample host. Ends with status 0 when the client stands connected. PICTURE gets what it shows.
set -euo pipefail
picture="$(realpath -m "${1:-/dev/null}")"
cd "$(dirname "$0")/.."
. scripts/common.sh

packages="$(scripts/package.sh)"
root="$(mktemp -d)"
finish() {
  mountpoint -q "$root/proc" && umount "$root/proc"
  rm -rf --one-file-system "$root"
}
trap finish EXIT

# The mirror that this system uses itself.
mirror="$(cat /etc/apt/sources.list /etc/apt/sources.list.d/*.sources 2>/dev/null |
  sed -n 's/^URIs: *//p; s/^deb \(\[[^]]*\] \)\?\([^ ]*\).*/\2/p' | head -n 1 || true)"
debootstrap --variant=minbase bookworm "$root" "${mirror:-http://deb.debian.org/debian}" >"$root.log" 2>&1 ||
  { tail -n 20 "$root.log" >&2; exit 1; }
rm -f "$root.log"
for proxy in /etc/apt/apt.conf.d/*proxy*; do [ -e "$proxy" ] && cp "$proxy" "$root/etc/apt/apt.conf.d/"; done
mount -t proc proc "$root/proc"
mkdir "$root/packages"
cp $packages "$root/packages/"

cat >"$root/try.sh" <<'INSIDE'
set -eu
export DEBIAN_FRONTEND=noninteractive LC_ALL=C
apt-get update -qq
apt-get install -y -qq --no-install-recommends /packages/*.deb xvfb xauth imagemagick >/install.log 2>&1 ||
  { tail -n 20 /install.log; exit 1; }
cd /tmp
quorvel-demohost --port 0 --data :memory: >/host.log &
until grep -q '^listening on ' /host.log; do sleep 0.2; done
cat >/sample.inf <<INF
[TELNET]
HostName=$(sed -n 's/^listening on //p' /host.log)
TermType=4
Rows=32
[LOGIN]
UserId=demo
Pwd=demo
[MAINFORM]
Caption=Quorvel GUI
INF
Xvfb :7 -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
sleep 2
DISPLAY=:7 QUORVEL_HOME=/tmp/home quorvel /sample.inf >/client.log 2>&1 &
client=$!
# A line of /proc/net/tcp: local address, remote address, state; 01 is established (proc_net_tcp(5)).
port="$(printf %04X "$(sed -n 's/^listening on .*://p' /host.log)")"
connected() { grep -q ":$port 01 " /proc/net/tcp; }
for _ in $(seq 60); do
  connected && break
  kill -0 $client || { cat /client.log; exit 1; }
  sleep 0.5
done
connected
sleep 3
import -display :7 -window root /picture.png
kill -0 $client
connected
kill $client
dpkg-query -W -f '${Package} ${Version} ${Status}\n' quorvel quorvel-demohost
cat /host.log /client.log
INSIDE
unshare --pid --fork --kill-child chroot "$root" /bin/sh /try.sh
[ "$picture" = /dev/null ] || cp "$root/picture.png" "$picture"
