#!/usr/bin/env bash
# Installs what is missing, builds the release and makes the Debian package in build/package/:
# install it with `sudo apt install ./build/package/tamberlin-tally_*.deb`.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
scripts/build.sh release
cpack --preset package
ls build/package/tamberlin-tally_*.deb
