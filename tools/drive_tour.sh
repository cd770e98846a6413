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

# --- the diagram of concentrations: Esc closes the menu that F10 opens, the bar keeps the focus
keys F10 Escape Right Right Right Down Return
shot 2_dialog
[ "$(difference 1_start 2_dialog)" -gt 5000 ] || fail "the menu opened no dialog"

# --- c(A,0), t(max), k1; a comma becomes a point, a letter is dropped; the button draws
words "0,8x"
keys Tab Tab
words "50"
keys Tab
words "0,05x"
shot 3_typed
keys Tab Tab Return
shot 4_drawn
[ "$(difference 3_typed 4_drawn)" -gt 100000 ] || fail "no diagram came"
# The chart is white and has curves, numbers and texts.
read -r white black < <(convert "$shots/4_drawn.png" -format '%c' histogram:info:- |
  awk '/#FFFFFF/ {white += $1} /#000000/ {black += $1} END {print white + 0, black + 0}')
[ "$white" -gt 200000 ] && [ "$black" -gt 3000 ] || fail "the chart is empty ($white, $black)"

# --- the project under a new name, then under the name that it has, and the end
keys ctrl+s
window "Save the actual project as"
words "$work/home/first"
keys Return
window "File Comment"
words "first steps"
keys Return
saved=$work/home/first.ZC3
[ -s "$saved" ] || fail "the project was not saved"
keys Escape # closes the diagram; the dialog that drew it has the focus again
shot 5_closed
[ "$(difference 4_drawn 5_closed)" -gt 100000 ] || fail "the diagram did not close"
rm "$saved"
keys ctrl+s
[ -s "$saved" ] || fail "Ctrl+S did not save under the known name"
keys ctrl+q
for _ in {1..50}; do kill -0 "$program" 2>/dev/null || break; sleep 0.1; done
status=0
wait "$program" || status=$?
[ "$status" -eq 0 ] || fail "the program ended with status $status"
[ -s "$work/program/ZorLastSession.ZC3" ] || fail "there is no last session"

# --- what was typed is what counts
QT_QPA_PLATFORM=offscreen "$work/program/zorvant" --export "$shots/6_exported.png" \
  --table "$work/table.TXT" "$saved" || fail "the saved project can't be drawn"
tr -d '\r' <"$work/table.TXT" | awk '
  $1 + 0 == $1 && NF >= 3 {
    rows++
    wanted = 0.8 * exp(-0.05 * $1)
    if ($2 < wanted - 1e-4 || $2 > wanted + 1e-4) wrong = $0
    last = $1
  }
  END {
    if (rows < 5 || last < 49.9 || wrong != "") {
      print rows + 0 " rows, the last at t = " last ", wrong: " wrong
      exit 1
    }
  }' || fail "the table is not the one of c(A,0) = 0.8, k1 = 0.05, t(max) = 50"
echo "first steps: drawn, saved, loaded ($shots)"
