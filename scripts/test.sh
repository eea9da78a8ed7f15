#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test (widget tests offscreen): once in the
# release build, and once in the debug build with the address and undefined behaviour
# sanitizers.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
scripts/check-format.sh
export QT_QPA_PLATFORM=offscreen
for preset in release debug; do
  scripts/build.sh "$preset"
  ctest --preset "$preset" -j "$(nproc)"
done
