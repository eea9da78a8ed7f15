#!/usr/bin/env bash
# Takes the screenshots of Restore from Recovery File and Bring in Bettors from another File under
# Xvfb, over the bundled example card: docs/screenshots/restore.png and import-bettors.png.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --build --preset release -j2 --target make-files-screenshots >/dev/null
QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 1600x1000x24" \
  build/release/docs/screenshots/make-files-screenshots examples/spring-meet.tly docs/screenshots
