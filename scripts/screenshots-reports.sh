#!/usr/bin/env bash
# Takes the screenshots of the bet listing and the reports under Xvfb (docs/screenshots/
# list-bets.png, list-bets-win.png, print.png and preview-*.png), and writes a PDF of each
# report with the companion into docs/reports/, each page also as a PNG beside it for a look.
# Needs xvfb and poppler-utils (pdftoppm).
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --build --preset release -j2 --target make-report-screenshots tally >/dev/null
card=examples/spring-meet.tly
QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 1600x1000x24" \
  build/release/docs/screenshots/make-report-screenshots "$card" docs/screenshots
mkdir -p docs/reports
tally=build/release/src/tally
"$tally" report "$card" card --pdf docs/reports/race-card.pdf
"$tally" report "$card" bettors --pdf docs/reports/bettors.pdf
# The listed bets are wide: at 7 points they fit a page upright.
"$tally" report "$card" bets --font-size 7 --pdf docs/reports/listed-bets.pdf
"$tally" report "$card" odds --race 3 --pdf docs/reports/odds-race-3.pdf
# The PDFs as pictures, to look at; not kept.
if [ "${KEEP_PNG:-}" = "1" ]; then
  for pdf in docs/reports/*.pdf; do pdftoppm -png -r 70 "$pdf" "${pdf%.pdf}"; done
fi
