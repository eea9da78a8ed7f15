#!/usr/bin/env bash
# Long fuzzing of the race file: the libFuzzer build of the round-trip target (preset "fuzz",
# clang with the address and undefined behaviour sanitizers), run on one core for SECONDS
# (default 600), or until RUNS inputs have run, over a corpus kept in build/fuzz/corpus, seeded with the driver's seeds, the
# example cards and the inputs kept in fuzz/regressions. Inputs that fail land in
# build/fuzz/artifacts; keep them in fuzz/regressions once mended.
#
#   scripts/fuzz.sh [SECONDS [RUNS]]
#
# TALLY_FUZZ_MAX_LEN bounds the size of an input (default 65536). TALLY_FUZZ_PRESET=fuzz-long
# builds without the address sanitizer (about twice as many inputs a second) for the longest
# runs; the corpus it grows is worth running through the default build afterwards.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-600}"
runs="${2:--1}"
max_len="${TALLY_FUZZ_MAX_LEN:-65536}"

if ! command -v clang++ >/dev/null; then
  sudo=""
  [ "$(id -u)" -ne 0 ] && sudo="sudo"
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq clang
fi
scripts/install-deps.sh

preset="${TALLY_FUZZ_PRESET:-fuzz}"
command -v ccache >/dev/null && export CMAKE_CXX_COMPILER_LAUNCHER=ccache
cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset" -j 2 --target fuzz_race_file fuzz_race_file_driver

build="build/$preset"
mkdir -p "$build/corpus" "$build/artifacts" "$build/seeds"
"$build/fuzz/fuzz_race_file_driver" --write-seeds "$build/seeds" examples fuzz/regressions
# Short allocation stacks: a crash found is run again by hand for the full report.
export ASAN_OPTIONS="${ASAN_OPTIONS:-malloc_context_size=2}"
# One process on one core; a slow input or one that takes memory out of proportion is a
# failure as much as a crash.
exec "$build/fuzz/fuzz_race_file" -max_total_time="$seconds" -runs="$runs" -max_len="$max_len" -timeout=10 \
  -rss_limit_mb=2048 -print_final_stats=1 -artifact_prefix="$build/artifacts/" \
  "$build/corpus" "$build/seeds"
