#!/usr/bin/env bash
# ./bench.sh [NAME]: builds release and runs the benchmarks, all or one (records, receiver, menu,
# screen, report, terminal, window).
# One tab-separated line a figure: name, value, unit, peer, the peer's value, ratio of ours to the
# peer's; the last three are empty where there is no peer.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh

install_packages scripts/packages-bench.txt >&2
build release >&2
found=""
for program in build/release/bench/bench_*; do
  [ -x "$program" ] && [ -f "$program" ] || continue
  name="${program##*/bench_}"
  [ -z "${1:-}" ] || [ "$1" = "$name" ] || continue
  found=1
  QT_QPA_PLATFORM=offscreen "$program"
done
if [ "${1:-window}" = window ]; then
  found=1
  bench/window.sh
fi
if [ -z "$found" ]; then
  echo "bench.sh: there is no benchmark ${1:-at all}" >&2
  exit 2
fi
