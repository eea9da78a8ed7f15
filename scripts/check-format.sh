#!/usr/bin/env bash
# Fails when a C++ file of the tree differs from .clang-format; prints the files to mend with
# `clang-format -i`.
set -euo pipefail
cd "$(dirname "$0")/.."
bad=$(git ls-files --cached --others --exclude-standard '*.cpp' '*.h' | xargs -r clang-format --dry-run 2>&1 | grep -o '^[^:]*:[0-9]*:[0-9]*: warning' | cut -d: -f1 | sort -u || true)
if [ -n "$bad" ]; then
  echo "Not formatted as .clang-format says (run clang-format -i on them):"
  echo "$bad"
  exit 1
fi
echo "format: every C++ file follows .clang-format"
