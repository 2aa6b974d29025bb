#!/usr/bin/env bash
# Installs what eowizard needs to build and test on Debian 12. Idempotent: when every
# package and the test locale are present it only checks and returns.
set -euo pipefail

packages=(
  cmake ninja-build g++ pkg-config
  libfmt-dev libcli11-dev nlohmann-json3-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  qt6-base-dev libgmsh-dev libchm-dev libgit2-dev libxml2-dev libseccomp-dev
  # the help compiler, the manual page, the Debian package and its checks
  fp-utils help2man dpkg-dev file lintian desktop-file-utils
  locales
  clang libclang-rt-14-dev
  # the real-X session test: a server, two window managers, keyboard and mouse, pictures
  xvfb openbox icewm xdotool x11-utils x11-xserver-utils x11-apps netpbm
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done

SUDO=""
[ "$(id -u)" -eq 0 ] || SUDO="sudo"

if [ ${#missing[@]} -gt 0 ]; then
  echo "setup: installing ${missing[*]}"
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq "${missing[@]}"
fi

# One test runs under a locale with a decimal comma.
if ! locale -a 2>/dev/null | grep -qi '^de_DE\.utf-\?8$'; then
  echo "setup: generating the de_DE.UTF-8 locale"
  $SUDO localedef -i de_DE -f UTF-8 de_DE.UTF-8
fi
