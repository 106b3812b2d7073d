#!/usr/bin/env bash
# Installs what is missing, builds the dev preset (sanitizers, warnings as errors), runs every test.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh

install_packages
build dev
export QT_QPA_PLATFORM=offscreen
ctest --preset dev -j 2
