#!/usr/bin/env bash
# Screenshots of Display Odds (each grid) and of its board on the example card, into
# docs/screenshots/, taken under Xvfb by the windows themselves.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --build --preset release -j2 --target odds-screenshots
xvfb-run -a -s "-screen 0 1600x1000x24" \
  build/release/scripts/screenshots/odds-screenshots examples/spring-meet.tly docs/screenshots
