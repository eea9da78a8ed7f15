#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test (widget tests offscreen).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
scripts/check-format.sh
scripts/build.sh release
export QT_QPA_PLATFORM=offscreen
ctest --preset release -j "$(nproc)"
