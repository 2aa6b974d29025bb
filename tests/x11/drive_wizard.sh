#!/usr/bin/env bash
# Drives the wizard window in a real X server (Xvfb, the Openbox window manager, keyboard
# and mouse from xdotool) through a whole session, as a new user would: a broken session
# file named on the session page and loaded on Yes, a project path in a folder the code
# page cannot hold, one in a folder that does not exist (not created on No, created on
# Yes) and then a good one, an author and parameters with characters it cannot hold, help
# minimised and called back from the input page and its dialog (under Openbox and under
# icewm), an input parameter through the dialog with a refused variable, Min above Max and
# a Default that is no number, a standard and a custom output, Finish, asked before the
# broken file is replaced. Then it checks what was written: the session over the broken
# file, ordered limits, the generated project. Before that, a shorter session: a session
# file cut short, loaded, then Cancel, answered No when asked whether to replace it; the
# cut file stays and the session goes beside it.
#
#   tests/x11/drive_wizard.sh EOWIZARD WORKDIR
#
# With xwd and netpbm installed, pictures of each step go to WORKDIR/shots.
set -euo pipefail
export LC_ALL=C.UTF-8  # characters, not bytes, for the shell, xdotool and the window

program=$(realpath "$1")
work=$(realpath -m "$2")
repo=$(cd "$(dirname "$0")/../.." && pwd)
rm -rf "$work"
mkdir -p "$work/home" "$work/data" "$work/shots" "$work/proj"

pids=()
cleanup() {
  for ((i = ${#pids[@]} - 1; i >= 0; i--)); do kill "${pids[i]}" 2>/dev/null || true; done
}
trap cleanup EXIT

fail() {
  echo "x11 session: $*" >&2
  # What the screen showed then, for whoever looks into it.
  if command -v xwd >/dev/null && command -v pnmtopng >/dev/null; then
    for id in $(xdotool search --onlyvisible --name . 2>/dev/null); do
      xwd -id "$id" -silent 2>/dev/null | xwdtopnm 2>/dev/null |
        pnmtopng >"$work/shots/failed-$id.png" 2>/dev/null || true
    done
  fi
  exit 1
}

# --- An X server of our own, with a window manager ---
exec {displayfd}<> <(:)
Xvfb -displayfd "$displayfd" -screen 0 1366x768x24 -nolisten tcp >"$work/xvfb.log" 2>&1 &
pids+=($!)
read -r -t 20 -u "$displayfd" display || fail "Xvfb did not start"
export DISPLAY=":$display"
# Ready once it says it can activate windows (it names itself a moment before that).
wm_ready() { xprop -root _NET_SUPPORTED 2>/dev/null | grep -q _NET_ACTIVE_WINDOW; }
wm=""
start_wm() {
  xprop -root -remove _NET_SUPPORTED 2>/dev/null || true  # what the last one said
  HOME="$work/home" "$1" >"$work/$1.log" 2>&1 &
  wm=$!
  pids+=("$wm")
  for _ in $(seq 200); do
    wm_ready && return
    sleep 0.1
  done
  fail "the window manager $1 did not start"
}
# The windows stay; the next window manager takes them over.
stop_wm() {
  kill "$wm"
  wait "$wm" 2>/dev/null || true
}
start_wm openbox

# --- Helpers ---
# The id of the window titled exactly $1, waiting up to 20 s for it.
window() {
  for _ in $(seq 200); do
    local id
    id=$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | head -n 1) || true
    if [ -n "$id" ]; then
      echo "$id"
      return
    fi
    sleep 0.1
  done
  fail "no window '$1'"
}
# Waits until no window is titled $1.
gone() {
  for _ in $(seq 200); do
    xdotool search --onlyvisible --name "^$1\$" >/dev/null 2>&1 || return 0
    sleep 0.1
  done
  fail "window '$1' stays"
}
# Waits until window $1 is no longer on the screen.
closed() {
  for _ in $(seq 200); do
    xwininfo -id "$1" 2>/dev/null | grep -q IsViewable || return 0
    sleep 0.1
  done
  fail "window $1 stays"
}
settle() { sleep 0.4; }
shot() {
  if command -v xwd >/dev/null && command -v pnmtopng >/dev/null; then
    xwd -id "$1" -silent | xwdtopnm 2>/dev/null | pnmtopng >"$work/shots/$2.png" || true
  fi
}
click() { xdotool mousemove --window "$1" "$2" "$3" click "${@:4}" 1; settle; }
type_text() { xdotool type --delay 40 "$1"; settle; }
# Gives the keyboard to window $1 (after a modal box or dialog closed over it).
focus() { xdotool windowactivate --sync "$1" 2>/dev/null || true; settle; }
key() { xdotool key "$@"; settle; }
# Whether window $1 is minimised, waiting up to 5 s for it to become $2 (yes or no).
minimised() {
  for _ in $(seq 50); do
    local state=no
    xprop -id "$1" WM_STATE 2>/dev/null | grep -q "window state: Iconic" && state=yes
    [ "$state" = "$2" ] && return 0
    sleep 0.1
  done
  return 1
}

# Help from the input page and from its dialog: minimising the help window takes no other
# window along, and Help brings it back in front. Ends on the input page, the dialog closed.
help_minimised_and_back() {
  focus "$w"
  key F1
  local help
  help=$(window "Input Parameters - Help")
  xdotool windowminimize "$help"
  minimised "$help" yes || fail "$1: the help window was not minimised"
  minimised "$w" no || fail "$1: minimising the help minimised the wizard"
  focus "$w"
  click "$w" $((WIDTH - 320)) $((HEIGHT - 57))  # Add
  local dialog
  dialog=$(window "Input parameter")
  focus "$dialog"
  key F1
  minimised "$help" no || fail "$1: F1 in the dialog did not bring the help back"
  shot "$help" "help-back-$1"
  xdotool windowminimize "$help"
  minimised "$help" yes || fail "$1: the help window was not minimised over the dialog"
  minimised "$dialog" no || fail "$1: minimising the help minimised the dialog"
  minimised "$w" no || fail "$1: minimising the help minimised the wizard with the dialog"
  focus "$dialog"
  key Escape
  gone "Input parameter"
  focus "$w"
}

wizard_title="Zentrix ExploringObject Wizard"
box_title="Zentrix Bravant ExploringObject Wizard"
broken="$work/Broken.bvg"
printf '[GENERAL]\r\nAPPLICATION=%s\r\nAUTHOR=cut\r\n\r\n' "$box_title" >"$broken"

# Every character typed below that the keyboard lacks gets a key of its own before the
# window starts: xdotool would map each onto a spare key while typing and put the key back
# at once, a race the window loses now and then.
spare=($(xmodmap -pke | awk 'NF == 3 { print $2 }'))
i=0
for c in é ü 张 伟 项 目 长 度 力; do
  xmodmap -e "keycode ${spare[i]} = $(printf 'U%04X' "'$c")"
  i=$((i + 1))
done

# Starts the wizard; its process id in $app.
start_wizard() {
  HOME="$work/home" XDG_DATA_HOME="$work/data" QT_QPA_PLATFORM=xcb \
    EOWIZARD_REGISTRY="$repo/examples/registry/demo-host.reg" \
    "$program" >>"$work/eowizard.log" 2>&1 &
  app=$!
  pids+=("$app")
}
# Waits until the wizard has ended, without an error.
ended() {
  for _ in $(seq 100); do
    kill -0 "$app" 2>/dev/null || break
    sleep 0.2
  done
  kill -0 "$app" 2>/dev/null && fail "the wizard did not close after $1"
  wait "$app" || fail "the wizard ended with $?"
}
# Presses $2 in the next box titled as every box is, after a look at it named $1.
answer_box() {
  local box
  box=$(window "$box_title")
  focus "$box"
  shot "$box" "$1"
  key "$2"
  closed "$box"
}

# --- A session cut inside its second input, loaded, then Cancel: the question before it
# is replaced is answered No, so the session goes beside it and the cut file stays ---
cut="$work/Cut.bvg"
printf '[GENERAL]\r\nAPPLICATION=%s\r\nAUTHOR=cut\r\n\r\n[INPUT]\r\nDESCRIPTION=Gap\r\nTYPE=Geometrical\r\n\r\n[INPUT]\r\nDESCRIPTION=Wi' \
  "$box_title" >"$cut"
cp "$cut" "$work/Cut.orig"
start_wizard
w=$(window "$wizard_title")
xdotool windowactivate --sync "$w"
key alt+n
click "$w" 600 93 --repeat 3
type_text "$cut"
key Tab
answer_box cut-load-question Return
answer_box cut-read-failure Return
focus "$w"
key Escape
answer_box cut-exit-question Return
answer_box cut-replace-question alt+n
ended Cancel
cmp -s "$cut" "$work/Cut.orig" || fail "the cut session was changed"
grep -qaF "DESCRIPTION=Gap" "$work/Cut 2.bvg" || fail "no session saved beside the cut one"
grep -qaF "[END]" "$work/Cut 2.bvg" || fail "the session beside the cut one is incomplete"

# --- The session ---
start_wizard

w=$(window "$wizard_title")
xdotool windowactivate --sync "$w"
eval "$(xdotool getwindowgeometry --shell "$w")"  # WIDTH, HEIGHT
shot "$w" page0
key alt+n

# Page 1: the broken session file, loaded on Yes, explained in a box; OK goes on.
click "$w" 600 93 --repeat 3
type_text "$broken"
key Tab
question=$(window "$box_title")
focus "$question"
shot "$question" load-question
key Return
closed "$question"
failure=$(window "$box_title")
focus "$failure"
shot "$failure" broken-session
key Return
closed "$failure"

# Page 2: a project folder the code page cannot hold is not taken; one that does not exist
# is not created on No, and the field says so; it is on Yes. Then a good one.
focus "$w"
key alt+n
click "$w" 600 93 --repeat 3
type_text "$work/项目/Demo.vbp"
shot "$w" project-refused
key ctrl+a
type_text "$work/studies/new/Walker.vbp"
key Tab
question=$(window "$box_title")
focus "$question"
shot "$question" folder-question
key Escape  # No
closed "$question"
[ ! -e "$work/studies" ] || fail "the project folder was created on No"
focus "$w"
shot "$w" folder-missing
click "$w" 600 93
key Tab  # left once more: asked once more
question=$(window "$box_title")
focus "$question"
key Return  # Yes
closed "$question"
[ -d "$work/studies/new" ] || fail "the project folder was not created on Yes"
focus "$w"
click "$w" 600 93 --repeat 3
type_text "$work/proj/Demo.vbp"
key Tab
click "$w" 600 149 --repeat 3
type_text "José Müller 张伟"
key Tab
shot "$w" author-notice

# Page 5: help, under Openbox and under icewm; then a parameter through the dialog.
key alt+n
key alt+n
key alt+n
help_minimised_and_back openbox
stop_wm
start_wm icewm
help_minimised_and_back icewm
stop_wm
start_wm openbox
focus "$w"
click "$w" $((WIDTH - 320)) $((HEIGHT - 57))
dialog=$(window "Input parameter")
focus "$dialog"
type_text "Coil length 长度"
key Tab
type_text "1len"
shot "$dialog" input-dialog-refused
key Home Delete Tab
type_text "mm"
key Tab
type_text "20"
key Tab
type_text "10"
key Tab
type_text "two"
key Return  # OK: the default value is refused in a box titled by default
refusal=$(window "SondelW")
focus "$refusal"
shot "$refusal" not-numeric
key Return
gone "SondelW"
focus "$dialog"
type_text "2"  # the refused field has the focus, its text selected
shot "$dialog" input-dialog-ready
key Return
gone "Input parameter"
focus "$w"
shot "$w" inputs

# Page 6: a standard output by double-click, a custom one through its dialog.
key alt+n
click "$w" $((WIDTH - 170)) 92 --repeat 2 --delay 80
click "$w" 208 $((HEIGHT - 57))
custom=$(window "Custom output parameter")
focus "$custom"
type_text "Force 力"
shot "$custom" output-dialog
key Return
gone "Custom output parameter"
focus "$w"
shot "$w" outputs

# Page 7: Finish asks before it saves the session over the broken file (Yes), and
# generates the project.
key alt+n
shot "$w" finish
key alt+f
answer_box replace-question Return
answer_box generated Return
ended Finish

# --- What was written ---
expect() { grep -qaF -- "$1" "$2" || fail "$2 lacks '$1'"; }
for line in "PROJECT=$work/proj/Demo.vbp" $'AUTHOR=Jos\xe9 M\xfcller ??' "DESCRIPTION=Coil length ??" \
  "VARIABLE=len" "DESCRIPTION=Contour length" "DESCRIPTION=Force ?" "[END]"; do
  expect "$line" "$broken"
done
grep -qaPz 'MIN=2\r\nMAX=10\r\nDEFAULT=2\r\n' "$broken" || fail "the limits are not ordered"
for file in Demo.vbp Demo.cls Demo.bas; do
  [ -s "$work/proj/$file" ] || fail "no $file"
done
[ -d "$work/proj/Demo_Files" ] || fail "no Demo_Files"
expect $'"Jos\xe9 M\xfcller ??"' "$work/proj/Demo.cls"
echo "x11 session: the wizard went through a whole session; pictures in $work/shots"
