#!/usr/bin/env bash
# scripts/fuzz.sh [SECONDS]: runs every fuzz target for that long (60 by default) from the seeds in
# fuzz/corpus/. New inputs go to build/fuzz/corpus/, what fails to build/fuzz/found/.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh

install_packages scripts/packages-clang.txt
build fuzz fuzzers
export ASAN_OPTIONS="${ASAN_OPTIONS:-detect_stack_use_after_return=1}"
for program in build/fuzz/fuzz/fuzz_*; do
  [ -x "$program" ] && [ -f "$program" ] || continue
  name="${program##*/fuzz_}"
  mkdir -p "build/fuzz/corpus/$name" "build/fuzz/found/$name"
  echo "== $name"
  QUORVEL_HOME="$PWD/build/fuzz/home" "$program" -max_total_time="${1:-60}" -max_len=4096 -timeout=10 \
    -rss_limit_mb=1024 -print_final_stats=1 -verbosity=0 -artifact_prefix="build/fuzz/found/$name/" \
    "build/fuzz/corpus/$name" "fuzz/corpus/$name"
done
