#!/usr/bin/env bash
# Installs what is missing, builds, and starts Tamberlin Tally with the bundled example card at
# the top of its recent files, so that the first-file chooser offers it selected.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
scripts/build.sh release
example="$(pwd)/examples/spring-meet.tly"
build/release/src/tally recent "$example"
exec build/release/src/tamberlin-tally
