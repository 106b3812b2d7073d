#!/usr/bin/env bash
# scripts/simulate.sh [MINUTES]: plays stories of the simulator for that long (10 by default), one
# process a core, with seeds that nobody has seen: they begin at the time of day. Ends at the first
# failure, with its story, its shortened form and status 1; see docs/SIMULATION.md.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh

install_packages
build release quorvel-sim
simulator=build/release/src/app/quorvel-sim
until=$(($(date +%s) + 60 * ${1:-10}))
first=$(date +%s)

# Blocks of stories, this process's among all; the thousand sessions of one process now and then.
play() {
  local core="$1" block=0 from
  while [ "$(date +%s)" -lt "$until" ]; do
    from=$(((first + block) * 100000 + core * 2000))
    "$simulator" --seeds "$from-$((from + 1999))" || return 1
    if [ $((block % 20)) -eq 0 ]; then "$simulator" --story sessions --seeds "$from" || return 1; fi
    block=$((block + 1))
  done
}

processes=()
for ((core = 0; core < $(nproc); ++core)); do
  play "$core" &
  processes+=($!)
done
status=0
for _ in "${processes[@]}"; do
  if ! wait -n; then
    status=1
    kill "${processes[@]}" 2>/dev/null || true
    break
  fi
done
wait || true
exit "$status"
