#!/usr/bin/env bash
# Installs what building, testing and running need, from Debian's packages, and nothing that is
# there already. With --check: only says what is missing.
set -euo pipefail

packages=(
  g++ cmake ninja-build ccache python3
  qt6-base-dev qt6-svg-dev libqt6opengl6-dev libqcustomplot-dev libqcustomplot2.1-qt6
  libgtest-dev libgmock-dev libbenchmark-dev
  clang-format
  fonts-liberation fonts-dejavu-core
)
# CI and the developer's checks (--all): clang-tidy, fuzzing, a screen without a screen, another
# reader of metafiles.
check_packages=(clang clang-tidy libclang-rt-14-dev xvfb xauth openbox xdotool imagemagick emf2svg)

wanted=("${packages[@]}")
[ "${1:-}" = "--all" ] && wanted+=("${check_packages[@]}")

missing=()
for package in "${wanted[@]}"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
done
if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi
if [ "${1:-}" = "--check" ]; then
  printf 'missing: %s\n' "${missing[*]}"
  exit 1
fi

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || {
    echo "These Debian packages are missing, and installing them needs root: ${missing[*]}" >&2
    exit 1
  }
  as_root=(sudo)
fi
echo "installing: ${missing[*]}"
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
