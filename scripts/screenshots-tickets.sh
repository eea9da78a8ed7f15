#!/usr/bin/env bash
# Takes the screenshots of the ticket windows under Xvfb: docs/screenshots/ticket-header.png
# (Cash/Collect with a ticket chosen) and place-bets.png (a new ticket with a bet being typed),
# from the example card. Needs xvfb.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --build --preset release -j2 --target make-ticket-screenshots >/dev/null
QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 1600x1000x24" \
  build/release/docs/screenshots/make-ticket-screenshots examples/spring-meet.tly docs/screenshots
