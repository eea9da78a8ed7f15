#!/usr/bin/env bash
# Takes the screenshots of the betting window under Xvfb: docs/screenshots/betting-window.png,
# close-transaction.png, ticket.pdf and ticket.png (the top of the PDF's page at 110 dots an inch).
# Needs xvfb and poppler-utils (pdftoppm).
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --build --preset release -j2 --target make-betting-screenshots >/dev/null
out=docs/screenshots
rm -f "$out/ticket.pdf"
QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 1600x1000x24" \
  build/release/docs/screenshots/make-betting-screenshots examples/spring-meet.tly "$out"
# The top of the page, where the three tickets stand.
pdftoppm -png -r 110 -singlefile -x 0 -y 0 -W 909 -H 500 "$out/ticket.pdf" "$out/ticket"
