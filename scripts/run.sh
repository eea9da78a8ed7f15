#!/usr/bin/env bash
# Installs what is missing, builds, and starts Tamberlin Tally on the bundled example card, which
# also goes to the top of its recent files for the next start.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
scripts/build.sh release
example="$(pwd)/examples/spring-meet.tly"
# On a first start the program's own default window is small; give a new user a comfortable one
# (in twips) when no settings exist yet. Later sessions keep whatever the user left.
conf="${XDG_CONFIG_HOME:-$HOME/.config}/TamberlinTally/TamberlinTally.conf"
if [ ! -e "$conf" ]; then
  mkdir -p "$(dirname "$conf")"
  printf '[Settings]\nMainLeft=600\nMainTop=600\nMainWidth=15000\nMainHeight=11000\n' > "$conf"
fi
build/release/src/tally recent "$example"
exec build/release/src/tamberlin-tally "$example"
