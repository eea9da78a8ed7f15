#!/usr/bin/env bash
# Installs the Debian packages the build, the tests and the program need, when missing.
set -euo pipefail
packages=(build-essential cmake ninja-build qt6-base-dev qt6-base-dev-tools libgl-dev
          libgtest-dev libgmock-dev libbenchmark-dev clang-format xvfb xauth
          qt6-svg-dev desktop-file-utils appstream groff-base openbox poppler-utils)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  sudo=""
  [ "$(id -u)" -ne 0 ] && sudo="sudo"
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${missing[@]}"
fi
