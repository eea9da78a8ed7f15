#!/usr/bin/env bash
# Takes every screenshot of docs/screenshots/ again on the bundled example card: builds the
# release's screenshot program and runs each group of windows under Xvfb with a window manager
# (so that frames, titles and message boxes look as on a desktop), then turns the printed
# tickets into ticket.png and writes a PDF of each report into docs/reports/.
set -euo pipefail
cd "$(dirname "$0")/.."

if [ "${1:-}" = "--inside-xvfb" ]; then
  # Run by xvfb-run below: a window manager, then each group in a process of its own.
  shift
  card=$1 out=$2
  openbox --sm-disable >/dev/null 2>&1 &
  wm=$!
  sleep 1
  status=0
  for group in shell betting tickets odds reports files; do
    SHOTS_WM=openbox QT_QPA_PLATFORM=xcb build/release/scripts/screenshots/make-screenshots "$group" "$card" "$out" ||
      { echo "screenshots: group $group failed" >&2; status=1; }
  done
  kill "$wm"
  exit $status
fi

scripts/install-deps.sh
cmake --preset release >/dev/null
cmake --build --preset release -j2 --target make-screenshots tally
card=examples/spring-meet.tly
out=docs/screenshots
mkdir -p "$out"
rm -f "$out"/*.png "$out"/ticket.pdf
# The program's settings go to a folder of their own, never the user's.
XDG_CONFIG_HOME="$(mktemp -d)"
export XDG_CONFIG_HOME
trap 'rm -rf "$XDG_CONFIG_HOME"' EXIT
xvfb-run -a -s "-screen 0 1600x1000x24" "$0" --inside-xvfb "$card" "$out"

# The top of the ticket page, where the three tickets stand.
pdftoppm -png -r 110 -singlefile -x 0 -y 0 -W 909 -H 500 "$out/ticket.pdf" "$out/ticket"

mkdir -p docs/reports
tally=build/release/src/tally
"$tally" report "$card" card --pdf docs/reports/race-card.pdf
"$tally" report "$card" bettors --pdf docs/reports/bettors.pdf
# The listed bets are wide: at 7 points they fit a page upright.
"$tally" report "$card" bets --font-size 7 --pdf docs/reports/listed-bets.pdf
"$tally" report "$card" odds --race 3 --pdf docs/reports/odds-race-3.pdf
ls "$out"
