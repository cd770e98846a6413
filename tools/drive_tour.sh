#!/usr/bin/env bash
# Goes through the first steps as a person does, with real keys in a real window on a screen of its
# own: opens the diagram of concentrations, types constants, draws, saves the project, ends the
# program. Then looks at what came of it: the picture on the screen, the saved file, and the table
# that the file gives, which must follow c = c(0) exp(-k t).
#     tools/drive_tour.sh [FOLDER]     keeps its pictures there, at first build/drive
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
shots=$(realpath -m "${1:-build/drive}")
rm -rf "$shots"
mkdir -p "$shots"
work=$(mktemp -d)
chmod 700 "$work"
pids=()
finish() {
  for ((i = ${#pids[@]} - 1; i >= 0; i--)); do kill "${pids[i]}" 2>/dev/null || true; done
  wait 2>/dev/null || true
  rm -rf "$work"
}
trap finish EXIT
fail() {
  import -window root "$shots/failed.png" 2>/dev/null || true
  echo "first steps: $1 (pictures: $shots)" >&2
  exit 1
}

# The program runs from a folder of its own, so that it finds and leaves nothing of anybody.
mkdir -p "$work/program" "$work/home"
cp build/zorvant "$work/program/"
ln -s "$PWD/examples" "$work/program/examples"
export HOME=$work/home XDG_DATA_HOME=$work/home/data XDG_CONFIG_HOME=$work/home/config
export XDG_RUNTIME_DIR=$work LC_ALL=C.UTF-8 QT_QPA_PLATFORM=xcb

Xvfb -displayfd 3 -screen 0 1280x900x24 -nolisten tcp 3>"$work/display" >"$work/xvfb.log" 2>&1 &
pids+=($!)
for _ in {1..100}; do [ -s "$work/display" ] && break; sleep 0.1; done
[ -s "$work/display" ] || fail "there is no screen"
DISPLAY=:$(cat "$work/display")
export DISPLAY
openbox >"$work/openbox.log" 2>&1 &
pids+=($!)
sleep 0.5

# --- what a person does and sees
shot() { import -window root "$shots/$1.png"; }
# Waits until two pictures one after the other are the same.
settle() {
  local before now
  before=$(import -window root rgb:- | cksum)
  for _ in {1..40}; do
    sleep 0.15
    now=$(import -window root rgb:- | cksum)
    [ "$now" = "$before" ] && return
    before=$now
  done
  fail "the screen does not come to rest"
}
keys() { xdotool key --clearmodifiers --delay 40 "$@"; settle; }
words() { xdotool type --clearmodifiers --delay 40 "$1"; settle; }
window() { # the window whose title begins so comes
  for _ in {1..100}; do
    xdotool search --onlyvisible --name "^$1" >/dev/null 2>&1 && return
    sleep 0.1
  done
  fail "no window \"$1\""
}
# How many pixels of two pictures differ.
difference() { compare -metric AE "$shots/$1.png" "$shots/$2.png" null: 2>&1 || true; }

"$work/program/zorvant" >"$work/program.log" 2>&1 &
program=$!
pids+=("$program")
window "ZORVANT-4"
settle
shot 1_start
