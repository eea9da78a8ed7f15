#!/usr/bin/env bash
# Screenshots of Restore from Recovery File and Bring in Bettors from another File over the
# bundled example card, into docs/screenshots/ (restore.png, import-bettors.png).
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --preset release >/dev/null
cmake --build --preset release -j2 --target shots-files
xvfb-run -a -s "-screen 0 1600x1000x24" build/release/tools/shots-files docs/screenshots
