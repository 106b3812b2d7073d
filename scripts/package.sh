#!/usr/bin/env bash
# scripts/package.sh: builds the Debian packages of the client and of the sample host; prints their
# paths.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh

install_packages scripts/packages-deb.txt >&2
build release quorvel quorvel-demohost quorvel-icon-files >&2
rm -rf build/release/packages
cpack --config build/release/CPackConfig.cmake >&2
ls build/release/packages/*.deb
