#!/usr/bin/env bash
# Walks through the program on a screen of its own and saves a picture of every station.
#     tools/tour.sh [FOLDER]     pictures go to FOLDER, at first build/tour
# SCALE=1.5 tools/tour.sh shows it as on a screen of 150 %.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/install_deps.sh --all
cmake -S . -B build -G Ninja >/dev/null
ninja -C build -j2 zorvant_tour
folder=$(realpath -m "${1:-build/tour}")
runtime=$(mktemp -d)
chmod 700 "$runtime"
trap 'rm -rf "$runtime"' EXIT
QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR="${SCALE:-1}" LC_ALL=C.UTF-8 XDG_RUNTIME_DIR="$runtime" \
  xvfb-run -a -s "-screen 0 1280x800x24 -nolisten tcp" build/zorvant_tour "$folder"
