#!/usr/bin/env bash
# End-to-end journeys through Quillet's window, driven only by X events as a person drives it: the
# program runs in a scratch folder on a virtual screen (Xvfb) under a window manager (openbox), xdotool
# moves the pointer, clicks and types, and each journey checks its outcome through what the program
# writes (the profile and preference files, read back with quillet-cli) or what it shows (window titles,
# message boxes, the clipboard, the colour of a read-out).
#
#   journeys.sh QUILLET QUILLET_CLI ARTEFACTS JOURNEY
#
# ARTEFACTS is a folder for this journey's screenshots and files: a screenshot of the screen at the
# failing step, the scratch folder's files and the program's output are kept there when a journey fails
# (and every step's screenshot when QUILLET_E2E_SHOTS=1). Exit status: 0 passed, 1 failed, 77 skipped
# (a tool is missing). Every wait polls with a deadline (QUILLET_E2E_TIMEOUT seconds, 30 by default), so a
# slow machine takes longer but does not fail.
set -uo pipefail
# The program must show its window on the virtual screen, whatever platform the caller chose for Qt.
unset QT_QPA_PLATFORM

if [ $# -ne 4 ]; then
  echo "usage: $0 QUILLET QUILLET_CLI ARTEFACTS JOURNEY" >&2
  exit 2
fi
QUILLET=$(realpath "$1")
CLI=$(realpath "$2")
ARTEFACTS=$3
JOURNEY=$4
HERE=$(cd "$(dirname "$0")" && pwd)
TIMEOUT=${QUILLET_E2E_TIMEOUT:-30}
SHOTS=${QUILLET_E2E_SHOTS:-0}

MAIN_TITLE='Poker Quillet Hand Range Analyzer and Odds Calculator'
BOX_TITLE='Poker Quillet'
WELCOME_TITLE='Welcome to Poker Quillet!'
PICKER_TITLE='Select Card'
BOARDS_TITLE='Boards Report'
MULTIWAY_TITLE='Multiway Equity'

for tool in Xvfb openbox xdotool xclip import; do
  if ! command -v "$tool" >/dev/null 2>&1; then
    echo "skipped: $tool is not installed (./dev test installs it)"
    exit 77
  fi
done

rm -rf "$ARTEFACTS"
mkdir -p "$ARTEFACTS"
exec > >(tee "$ARTEFACTS/journey.log") 2>&1
TEE_PID=$!
SCRATCH=$(mktemp -d "${TMPDIR:-/tmp}/quillet-e2e.XXXXXX")
XVFB_PID=""
WM_PID=""
QUILLET_PID=""
MAIN=""
STEP=0

log() { echo "[$(date +%H:%M:%S.%N | cut -c1-12)] $*"; }

shoot() {
  STEP=$((STEP + 1))
  import -window root "$ARTEFACTS/$(printf '%02d' "$STEP")-$1.png" 2>/dev/null || true
}

step_shot() { if [ "$SHOTS" = 1 ]; then shoot "$1"; fi; }

stop_pid() {
  local pid=$1
  [ -n "$pid" ] || return 0
  kill "$pid" 2>/dev/null || return 0
  for _ in $(seq 50); do
    kill -0 "$pid" 2>/dev/null || return 0
    sleep 0.1
  done
  kill -9 "$pid" 2>/dev/null || true
}

cleanup() {
  stop_pid "$QUILLET_PID"
  stop_pid "$WM_PID"
  stop_pid "$XVFB_PID"
  rm -rf "$SCRATCH"
  # The log's last lines reach the file before the journey ends.
  exec >&- 2>&-
  wait "$TEE_PID" 2>/dev/null
}
trap cleanup EXIT

fail() {
  log "FAILED: $*"
  log "the clipboard holds: $(clipboard | head -5 | tr '\r\n' '  ')"
  shoot failure
  mkdir -p "$ARTEFACTS/scratch"
  cp -r "$SCRATCH/." "$ARTEFACTS/scratch/" 2>/dev/null || true
  rm -f "$ARTEFACTS/scratch/quillet"
  log "screenshots and files kept in $ARTEFACTS"
  exit 1
}

# poll DESCRIPTION COMMAND...: runs COMMAND until it succeeds, failing the journey after the timeout.
poll() {
  local what=$1
  shift
  local deadline=$((SECONDS + TIMEOUT))
  until "$@"; do
    [ "$SECONDS" -lt "$deadline" ] || fail "waited ${TIMEOUT}s for $what"
    sleep 0.1
  done
}

# --- The virtual screen, the window manager and the program ----------------------------------------

# Starts Xvfb on a free display and sets DISPLAY. Xvfb picks the display itself (-displayfd), but two
# servers starting at once can reach for the same number and the loser may name it before it ends, so the
# journeys take turns at starting one (a lock file), and a start counts only when this Xvfb is alive and
# its display answers.
xvfb_ready() {
  kill -0 "$XVFB_PID" 2>/dev/null || return 2
  grep -q '[0-9]' "$1" || return 1
  DISPLAY=":$(tr -dc '0-9' <"$1")" xdotool getdisplaygeometry >/dev/null 2>&1
}

start_screen() {
  local fdfile=$SCRATCH/display attempt status lock
  exec {lock}>"${TMPDIR:-/tmp}/quillet-e2e-xvfb.lock"
  flock -w "$TIMEOUT" "$lock" || log "no turn at starting a virtual screen in ${TIMEOUT}s; starting one anyway"
  for attempt in 1 2 3; do
    : >"$fdfile"
    exec {displayfd}>"$fdfile"
    # -noreset: the server would otherwise start over when its last client leaves (the readiness check
    # below is one), and a client connecting meanwhile, the window manager say, would be turned away.
    Xvfb -displayfd "$displayfd" -screen 0 1280x1024x24 -nolisten tcp -noreset >>"$SCRATCH/xvfb.log" 2>&1 \
      {lock}>&- &
    XVFB_PID=$!
    exec {displayfd}>&-
    local deadline=$((SECONDS + TIMEOUT))
    while true; do
      xvfb_ready "$fdfile"
      status=$?
      [ "$status" -eq 1 ] && [ "$SECONDS" -lt "$deadline" ] || break
      sleep 0.1
    done
    if [ "$status" -eq 0 ]; then break; fi
    log "the virtual screen did not start (try $attempt)"
    stop_pid "$XVFB_PID"
    XVFB_PID=""
  done
  exec {lock}>&-
  [ -n "$XVFB_PID" ] || fail "no virtual screen would start"
  export DISPLAY=":$(tr -dc '0-9' <"$fdfile")"
  log "virtual screen $DISPLAY"
  openbox --config-file "$HERE/openbox-rc.xml" >"$SCRATCH/openbox.log" 2>&1 &
  WM_PID=$!
  # The window manager is up once it announces its desktops on the root window.
  poll "the window manager to start" xdotool get_num_desktops >/dev/null 2>&1
}

# Starts the program in the scratch folder (its program folder: the files are written beside it).
start_quillet() {
  QUILLET_PID=""
  # shellcheck disable=SC2086
  (cd "$SCRATCH" && exec ${LAUNCH:-} ./quillet >>"$SCRATCH/quillet.log" 2>&1) &
  QUILLET_PID=$!
  log "quillet started"
}

quillet_gone() { ! kill -0 "$QUILLET_PID" 2>/dev/null; }

# Closes the main window as a person does (Alt+F4) and waits for the program to end.
close_quillet() {
  activate "$MAIN"
  xdotool key alt+F4
  poll "quillet to end after Alt+F4" quillet_gone
  wait "$QUILLET_PID" 2>/dev/null
  QUILLET_PID=""
  MAIN=""
  log "quillet closed"
}

# --- Windows --------------------------------------------------------------------------------------

# Visible windows whose title matches the pattern, one id a line.
windows_named() { xdotool search --onlyvisible --name "$1" 2>/dev/null; }

found_window() { [ -n "$(windows_named "$1" | head -1)" ]; }
no_window() { [ -z "$(windows_named "$1" | head -1)" ]; }

# wait_window PATTERN: WIN becomes the id of the first visible window with that title. (No waiting
# function runs in a $(...) subshell: a failure there would end the subshell, not the journey.)
WIN=""
wait_window() {
  poll "a window titled $1" found_window "$1"
  WIN=$(windows_named "$1" | head -1)
}

# A window that is visible now and was not in the list given (the program's pop-up menus and lists carry
# the program's name as their title, so they are told apart by being new).
new_window_of() {
  local before=" $1 " id
  for id in $(xdotool search --onlyvisible --class quillet 2>/dev/null); do
    case "$before" in *" $id "*) ;; *) echo "$id"; return 0 ;; esac
  done
  return 1
}
has_new_window() { new_window_of "$1" >/dev/null; }
quillet_windows() { xdotool search --onlyvisible --class quillet 2>/dev/null | tr '\n' ' '; }
wait_new_window() {
  poll "$2" has_new_window "$1"
  WIN=$(new_window_of "$1")
}

is_active() { [ "$(xdotool getactivewindow 2>/dev/null)" = "$1" ]; }
activate() {
  xdotool windowactivate "$1" 2>/dev/null
  poll "window $1 to take the keyboard" is_active "$1"
}

# The first start's welcome question, answered No; then the main window, active.
answer_welcome_no() {
  local box
  wait_window "^$WELCOME_TITLE\$"
  box=$WIN
  activate "$box"
  step_shot welcome
  xdotool key n
  poll "the welcome question to close" no_window "^$WELCOME_TITLE\$"
}

wait_main() {
  wait_window "^$MAIN_TITLE\$"
  MAIN=$WIN
  activate "$MAIN"
}

# --- Input ----------------------------------------------------------------------------------------

# click X Y [BUTTON] [MODIFIERS]: a click at a point of the main window's client area (pixels), with
# the modifier keys (shift, ctrl, alt, "ctrl+alt") held down.
click_in() {
  local win=$1 x=$2 y=$3 button=${4:-1} mods=${5:-}
  xdotool mousemove --window "$win" --sync "$x" "$y"
  if [ -n "$mods" ]; then xdotool keydown "$mods"; fi
  xdotool click "$button"
  if [ -n "$mods" ]; then xdotool keyup "$mods"; fi
}
click() { click_in "$MAIN" "$@"; }

# A click in a card box opens the card picker beside it; a person sees it open (or, open beside the other
# box, move over) before going on. Its place is read only once it has moved: a click on its buttons at
# the place it is leaving would miss.
picker_place() { xdotool getwindowgeometry "$1" 2>/dev/null | grep Position; }
picker_moved() { [ "$(picker_place "$1")" != "$2" ]; }
click_card_box() {
  local picker="" place=""
  if found_window "^$PICKER_TITLE\$"; then
    picker=$(windows_named "^$PICKER_TITLE\$" | head -1)
    place=$(picker_place "$picker")
  fi
  click "$@"
  wait_window "^$PICKER_TITLE\$"
  if [ -n "$picker" ]; then poll "the picker to move beside the box clicked" picker_moved "$picker" "$place"; fi
}

type_text() { xdotool type --delay 40 "$1"; }

# Grid block of a row and a column (0 is the ace): its centre in the window.
block_xy() { echo "$((8 + $2 * 34 + 17)) $((144 + $1 * 20 + 10))"; }
click_block() {
  local xy
  xy=$(block_xy "$1" "$2")
  # shellcheck disable=SC2086
  click $xy "${3:-1}" "${4:-}"
}

# The controls' places in the window (pixels from its top-left corner).
PLAYER_BOX="200 20"
PLAYER_ARROW="300 20"
LBL_SAVE="340 20"
LBL_DELETE="398 20"
LBL_OPTIONS="671 20"
LBL_MY_HAND="39 57"
MY_HAND="118 57"
BOARD="339 57"
CMD_CALC_EQUITY="124 92"
MY_EQUITY="264 82"
RANGE_BOX="37 450"
SLIDER_Y=450
LBL_ANY_PAIR="89 479"
LBL_ANY_BROADWAY="278 479"
LBL_CLEAR_ALL="214 507"
TREE_FIRST_NODE="520 76"
NOTATION_BOX="250 421"

# The options menu's items: Display Options, Appearance, Operation, Multiway Equity..., Boards Report...
OPTIONS_ITEMS=5

# click_item MENU INDEX COUNT: clicks item INDEX (from 0) of a pop-up menu or list of COUNT items.
click_item() {
  local menu=$1 index=$2 count=$3 x y w h
  eval "$(xdotool getwindowgeometry --shell "$menu" | sed 's/^/local /')"
  w=$WIDTH
  h=$HEIGHT
  x=$((w / 2))
  y=$(((2 * index + 1) * h / (2 * count)))
  xdotool mousemove --window "$menu" --sync "$x" "$y" click 1
}

# hover_tooltip X Y NAME: rests the pointer on a point of the main window until a tooltip opens.
hover_tooltip() {
  local before
  before=$(quillet_windows)
  xdotool mousemove --window "$MAIN" --sync "$1" "$2"
  wait_new_window "$before" "a tooltip at $1,$2"
  local tip=$WIN
  step_shot "$3"
  log "ok: a tooltip at $1,$2"
  # The pointer leaves and the tooltip goes: it carries the program's name as its title, as a message box
  # does, and must not be taken for one.
  xdotool mousemove --window "$MAIN" --sync 450 20
  poll "the tooltip to close" no_window_id "$tip"
}

# The program's clipboard, as xclip reads it.
clipboard() { xclip -selection clipboard -o 2>/dev/null; }
clipboard_has() { clipboard | grep -qF -- "$1"; }

# A message box of the program: waits for it, copies its text (Ctrl+C), checks the text holds TEXT,
# and closes it with Enter.
expect_message() {
  local text=$1 box
  wait_window "^$BOX_TITLE\$"
  box=$WIN
  activate "$box"
  step_shot message
  # Emptied first, so that an earlier copy of the same words cannot pass for this one.
  xclip -selection clipboard -i /dev/null
  xdotool key ctrl+c
  poll "the message box to hold \"$text\"" clipboard_has "$text"
  xdotool key Return
  poll "the message box to close" no_window_id "$box"
  log "ok: a message box said \"$text\""
}

# The colour of one pixel of a window, as #RRGGBB.
pixel() { import -window "$1" -crop "1x1+$2+$3" -depth 8 txt:- 2>/dev/null | grep -o '#[0-9A-F]\{6\}' | head -1; }

# --- Reading the files back -----------------------------------------------------------------------

profiles() { "$CLI" profiles list --file "$SCRATCH/Player_Profiles.ini"; }

# layer NAME On|Seen: the classes of one layer of a saved profile, sorted, one a line.
layer() {
  "$CLI" profiles show "$1" --file "$SCRATCH/Player_Profiles.ini" |
    awk -v want="$2" '/^On layer/ {l = "On"; next} /^Seen layer/ {l = "Seen"; next}
                      /^  / && l == want {print $1}' | sort
}

# The holdings an On layer counts, and its range text.
layer_holdings() {
  "$CLI" profiles show "$1" --file "$SCRATCH/Player_Profiles.ini" |
    awk '/^On layer/ {l = 1; next} /^Seen layer/ {l = 0; next} /^  / && l {n += $2} END {print n + 0}'
}
range_text() { "$CLI" profiles show "$1" --file "$SCRATCH/Player_Profiles.ini" | sed -n 's/^Range text: //p'; }

pref() { sed -n "s/^$1|//p" "$SCRATCH/MyPrefs.ini" | tr -d '\r'; }

expect_equal() {
  if [ "$2" != "$3" ]; then
    printf '%s\n--- expected ---\n%s\n--- got ---\n%s\n' "$1" "$3" "$2"
    fail "$1"
  fi
  log "ok: $1"
}

# Every class of the grid with the given ranks in its name, and the like: built from the rank order.
RANKS=(A K Q J T 9 8 7 6 5 4 3 2)
class_at() {
  local r=$1 c=$2
  if [ "$r" -eq "$c" ]; then
    echo "${RANKS[$r]}${RANKS[$c]}"
  elif [ "$c" -gt "$r" ]; then
    echo "${RANKS[$r]}${RANKS[$c]}s"
  else
    echo "${RANKS[$c]}${RANKS[$r]}o"
  fi
}
sorted() { tr ' ' '\n' | grep -v '^$' | sort -u; }

first_start() {
  cp "$QUILLET" "$SCRATCH/quillet"
  start_screen
  start_quillet
  answer_welcome_no
  wait_main
  step_shot started
}

restart() {
  start_quillet
  wait_main
}

# --- The journeys ---------------------------------------------------------------------------------

journey_first_start() {
  first_start
  close_quillet
  [ -f "$SCRATCH/Player_Profiles.ini" ] || fail "no Player_Profiles.ini after the first close"
  [ -f "$SCRATCH/MyPrefs.ini" ] || fail "no MyPrefs.ini after the first close"
  expect_equal "the profiles after the first start" "$(profiles)" "Generic"
  expect_equal "the welcome question is not asked again" "$(pref mnuHideEmptyCats)" "True"
  restart
  found_window "^$WELCOME_TITLE\$" && fail "the welcome question came again on the second start"
  close_quillet
}

# Clear All, then AA, Shift+KK and Shift+QQ: the range AA, KK, QQ.
aces_kings_queens() {
  # shellcheck disable=SC2086
  click $LBL_CLEAR_ALL
  click_block 0 0
  click_block 1 1 1 shift
  click_block 2 2 1 shift
}

journey_cook_export() {
  first_start
  aces_kings_queens
  # shellcheck disable=SC2086
  click_card_box $MY_HAND
  type_text AhKd
  # shellcheck disable=SC2086
  click_card_box $BOARD
  type_text Tc8h3s
  xdotool key Return
  step_shot cooked
  close_picker
  local before
  before=$(quillet_windows)
  # shellcheck disable=SC2086
  click $TREE_FIRST_NODE 3
  local menu
  wait_new_window "$before" "the results tree's pop-up menu"
  menu=$WIN
  step_shot tree-menu
  click_item "$menu" 1 2
  "$CLI" cook --hand AhKd --board Tc8h3s --range AA,KK,QQ >"$SCRATCH/expected-export.txt" ||
    fail "quillet-cli cook failed"
  poll "the clipboard to hold the export" clipboard_has "$(head -1 "$SCRATCH/expected-export.txt" | tr -d '\r')"
  clipboard >"$SCRATCH/export.txt"
  cmp -s "$SCRATCH/export.txt" "$SCRATCH/expected-export.txt" ||
    fail "the export differs from quillet-cli cook: $(diff "$SCRATCH/export.txt" "$SCRATCH/expected-export.txt" | head -20)"
  log "ok: the export equals quillet-cli cook"
  close_quillet
}

journey_grid_layers() {
  first_start
  # shellcheck disable=SC2086
  click $LBL_CLEAR_ALL
  click_block 0 0 1             # AA on
  click_block 1 1 1 shift       # KK joins it
  click_block 0 1 3             # AKs in the Seen layer
  click_block 12 12 1 ctrl      # the cross through 22: the 2 column and row
  click_block 5 5 1 alt         # 99 and every higher pair
  click_block 1 0 1 "ctrl+alt"  # AKo only shown: no layer changes
  step_shot clicked
  # shellcheck disable=SC2046
  hover_tooltip $(block_xy 0 1) block-tooltip
  close_quillet
  local cross=() pairs=() i
  for i in $(seq 0 12); do
    cross+=("$(class_at "$i" 12)" "$(class_at 12 "$i")")
  done
  for i in $(seq 0 5); do pairs+=("$(class_at "$i" "$i")"); done
  expect_equal "the On layer after the clicks" "$(layer Generic On | tr '\n' ' ')" \
    "$(echo AA KK "${cross[@]}" "${pairs[@]}" | sorted | tr '\n' ' ')"
  expect_equal "the Seen layer after the clicks" "$(layer Generic Seen | tr '\n' ' ')" "AKs "

  # The slider dragged from its start to the middle: some share of the holdings, as the box says.
  restart
  local y=$SLIDER_Y
  xdotool mousemove --window "$MAIN" --sync 90 "$y" mousedown 1
  xdotool mousemove --window "$MAIN" --sync 150 "$y"
  xdotool mousemove --window "$MAIN" --sync 210 "$y" mouseup 1
  step_shot dragged
  close_quillet
  local text held
  text=$(range_text Generic)
  held=$(layer_holdings Generic)
  [ "$held" -gt 50 ] || fail "the dragged slider switched on only $held holdings"
  expect_equal "the range text after the drag is the share of the holdings" "$text" \
    "$(awk -v n="$held" 'BEGIN {printf "%.1f", n * 100 / 1326}')"
  [ -z "$(layer Generic Seen)" ] || true

  # A percentage typed into the range box and Enter: the step of the order at or below it.
  restart
  # shellcheck disable=SC2086
  click $RANGE_BOX
  xdotool key ctrl+a
  type_text 10
  xdotool key Return
  step_shot percentage
  close_quillet
  expect_equal "the range text after typing 10 and Enter" "$(range_text Generic)" "9.8"
  expect_equal "the holdings after typing 10" "$(layer_holdings Generic)" 130

  # The quick-select labels: Clear All, Any Pair, Any Broadway.
  restart
  # shellcheck disable=SC2086
  click $LBL_CLEAR_ALL
  # shellcheck disable=SC2086
  click $LBL_ANY_PAIR
  # shellcheck disable=SC2086
  click $LBL_ANY_BROADWAY
  step_shot quick-select
  close_quillet
  local expected=() r c
  for i in $(seq 0 12); do expected+=("$(class_at "$i" "$i")"); done
  for r in $(seq 0 4); do for c in $(seq 0 4); do expected+=("$(class_at "$r" "$c")"); done; done
  expect_equal "the On layer after Clear All, Any Pair, Any Broadway" "$(layer Generic On | tr '\n' ' ')" \
    "$(echo "${expected[@]}" | sorted | tr '\n' ' ')"
  expect_equal "the Seen layer after Clear All" "$(layer Generic Seen)" ""
}

journey_profiles() {
  first_start
  # The name typed over the selected one, and Enter.
  # shellcheck disable=SC2086
  click $PLAYER_BOX
  xdotool key ctrl+a
  type_text Villain
  step_shot typed-name
  xdotool key Return
  step_shot saved
  close_quillet
  expect_equal "the profiles after saving Villain" "$(profiles | tr '\n' ' ')" "Generic Villain "

  # Picked from the list, then deleted: Generic is left. (Delete asks nothing.)
  restart
  local before list
  before=$(quillet_windows)
  # shellcheck disable=SC2086
  click $PLAYER_ARROW
  wait_new_window "$before" "the player list to open"
  list=$WIN
  step_shot player-list
  click_item "$list" 1 2
  poll "the player list to close" quillet_windows_are "$before"
  step_shot picked
  # shellcheck disable=SC2086
  click $LBL_DELETE
  step_shot deleted
  close_quillet
  expect_equal "the profiles after picking and deleting Villain" "$(profiles)" "Generic"
}
quillet_windows_are() { [ "$(quillet_windows)" = "$1" ]; }

# tick_submenu ROW NAME SHOT INDEX: opens the options menu's submenu on row ROW (NAME, for the messages),
# takes the screenshot SHOT of it and clicks its item INDEX.
tick_submenu() {
  local before menu sub
  before=$(quillet_windows)
  # shellcheck disable=SC2086
  click $LBL_OPTIONS
  wait_new_window "$before" "the options menu"
  menu=$WIN
  before="$before $menu"
  click_item "$menu" "$1" $OPTIONS_ITEMS
  wait_new_window "$before" "the $2 submenu"
  sub=$WIN
  step_shot "$3"
  click_item "$sub" "$4" 3
  poll "the options menu to close" no_window_id "$menu"
}

# Opens the options menu's Appearance submenu and clicks item INDEX of it.
tick_appearance() { tick_submenu 1 Appearance appearance-menu "$1"; }
no_window_id() { ! xdotool search --onlyvisible --class quillet 2>/dev/null | grep -qx "$1"; }

journey_options() {
  first_start
  tick_appearance 1 # Win Lose Icons
  tick_appearance 0 # Category Icons
  close_quillet
  expect_equal "Win Lose Icons in the preferences" "$(pref mnuWinLoseIcons)" "True"
  expect_equal "Category Icons in the preferences" "$(pref mnuCategoryIcons)" "True"
  restart
  local before menu
  before=$(quillet_windows)
  # shellcheck disable=SC2086
  click $LBL_OPTIONS
  wait_new_window "$before" "the options menu"
  menu=$WIN
  click_item "$menu" 1 $OPTIONS_ITEMS
  sleep 0.3
  step_shot ticks-after-restart
  xdotool key Escape Escape
  close_quillet
  expect_equal "Win Lose Icons after a restart" "$(pref mnuWinLoseIcons)" "True"
  expect_equal "Category Icons after a restart" "$(pref mnuCategoryIcons)" "True"
}

# The picker's OK and Cancel buttons, from its bottom-right corner.
picker_button() {
  local picker=$1 from_right=$2
  eval "$(xdotool getwindowgeometry --shell "$picker" | sed 's/^/local /')"
  click_in "$picker" $((WIDTH - from_right)) $((HEIGHT - 26))
}
picker_ok() { picker_button "$1" 132; }
picker_cancel() { picker_button "$1" 48; }

# A click in a card box opens the picker beside it; it covers the top of the results tree, so it is
# closed with Cancel (which leaves the box as typed) before the tree is used.
close_picker() {
  wait_window "^$PICKER_TITLE\$"
  picker_cancel "$WIN"
  poll "the picker to close on Cancel" no_window "^$PICKER_TITLE\$"
}

journey_picker() {
  first_start
  # shellcheck disable=SC2086
  click $LBL_MY_HAND
  local picker
  wait_window "^$PICKER_TITLE\$"
  picker=$WIN
  step_shot picker
  # The cells start 6 pixels in; 32 x 34 pixels each, one row a suit (clubs, diamonds, hearts, spades).
  click_in "$picker" $((6 + 0 * 32 + 16)) $((6 + 2 * 34 + 17)) # Ah
  click_in "$picker" $((6 + 1 * 32 + 16)) $((6 + 1 * 34 + 17)) # Kd
  step_shot picked
  picker_ok "$picker"
  poll "the picker to close on OK" no_window "^$PICKER_TITLE\$"
  step_shot picker-ok
  close_quillet
  expect_equal "My Hand after picking Ah and Kd" "$(pref txtMyHand)" "KdAh"
}

journey_equity() {
  first_start
  aces_kings_queens
  # shellcheck disable=SC2086
  click_card_box $MY_HAND
  type_text AhKd
  # shellcheck disable=SC2086
  click_card_box $BOARD
  type_text Tc8h3s
  close_picker
  # My Equity's background takes the colour of its value: the colour quillet-cli equity gives.
  local colour
  colour=$("$CLI" equity --hand AhKd --board Tc8h3s --range AA,KK,QQ --json | grep -o '#[0-9A-Fa-f]\{6\}')
  [ -n "$colour" ] || fail "quillet-cli equity gave no colour"
  # shellcheck disable=SC2086
  click $CMD_CALC_EQUITY
  poll "My Equity to show its colour $colour" read_out_shows "${colour^^}"
  log "ok: My Equity shows $colour"
  step_shot equity
  close_quillet
}
# shellcheck disable=SC2086
read_out_shows() { [ "$(pixel "$MAIN" $MY_EQUITY)" = "$1" ]; }

# AA alone cooked on Kc8h3s: the aces' holdings sit in the categories.
cook_aces() {
  # shellcheck disable=SC2086
  click $LBL_CLEAR_ALL
  click_block 0 0
  # shellcheck disable=SC2086
  click_card_box $BOARD
  type_text Kc8h3s
  xdotool key Return
  close_picker
}

journey_card_search() {
  first_start
  cook_aces
  hover_tooltip 560 87 category-tooltip # "One pair", below the spacer line
  # shellcheck disable=SC2086
  click $TREE_FIRST_NODE
  local box
  xdotool key F3
  wait_window "^$BOX_TITLE\$"
  box=$WIN
  step_shot asked
  type_text Ah
  xdotool key Return
  poll "the card question to close" no_window_id "$box"
  expect_message "Found Ah in category >*O pair"
  activate "$MAIN"
  xdotool key F3
  wait_window "^$BOX_TITLE\$"
  box=$WIN
  type_text zz
  xdotool key Return
  poll "the card question to close" no_window_id "$box"
  expect_message "Invalid Card"
  activate "$MAIN"
  close_quillet
}

# The "Range:" box under the grid: typed notation and Enter become the On layer; Ctrl+C with the pointer
# over the grid copies the notation; a bad text brings its message once and changes nothing.
journey_notation() {
  first_start
  # shellcheck disable=SC2086
  click $NOTATION_BOX
  xdotool key ctrl+a
  type_text "qq+ aks AhQh"
  xdotool key Return
  step_shot notation-typed
  xclip -selection clipboard -i /dev/null
  # shellcheck disable=SC2046
  xdotool mousemove --window "$MAIN" --sync $(block_xy 6 6)
  xdotool key ctrl+c
  poll "the clipboard to hold the grid's notation" clipboard_has "QQ+, AKs, AhQh"
  log "ok: Ctrl+C over the grid copied the notation"
  # shellcheck disable=SC2086
  click $NOTATION_BOX
  xdotool key ctrl+a
  type_text "QQ+, AKx"
  xdotool key Return
  expect_message "unknown token 'AKx' at column 6"
  activate "$MAIN"
  sleep 0.5
  found_window "^$BOX_TITLE\$" && fail "the error's message box came a second time"
  step_shot after-bad-notation
  close_quillet
  expect_equal "the On layer after the notation" \
    "$("$CLI" profiles show Generic --notation --file "$SCRATCH/Player_Profiles.ini" | sed -n 's/^On layer notation: //p')" \
    "QQ+, AKs, AhQh"
  expect_equal "the range text after the notation" "$(range_text Generic)" "~1.7"
}

# Opens the options menu's Operation submenu and clicks item INDEX of it.
tick_operation() { tick_submenu 2 Operation operation-menu "$1"; }

# read_out X Y: the text of an equity read-out, selected with a drag across it and copied with Ctrl+C.
READ_OUT=""
read_out() {
  local x=$1 y=$2
  xclip -selection clipboard -i /dev/null
  xdotool mousemove --window "$MAIN" --sync $((x - 26)) "$y" mousedown 1
  xdotool mousemove --window "$MAIN" --sync $((x + 26)) "$y" mouseup 1
  xdotool key ctrl+c
  poll "the clipboard to hold the read-out at $x,$y" clipboard_has "%"
  READ_OUT=$(clipboard)
}
MY_EQUITY_CENTRE="294 92"
OPP_EQUITY_CENTRE="438 92"

# "Standard Showdown Rules" ticked from the Options menu, a range typed into My Hand: Calc Equity gives my
# range's equity against the opponent's, as quillet-cli equity --hand-range counts it; a bad range is
# refused with its error.
journey_range_hand() {
  first_start
  tick_operation 2 # Standard Showdown Rules
  # shellcheck disable=SC2086
  click $NOTATION_BOX
  xdotool key ctrl+a
  type_text "22+, A7s+, KQo"
  xdotool key Return
  # shellcheck disable=SC2086
  click_card_box $MY_HAND
  type_text "QQ+, AKs"
  # shellcheck disable=SC2086
  click_card_box $BOARD
  type_text Tc8h3s
  close_picker
  # shellcheck disable=SC2086
  click $CMD_CALC_EQUITY
  local want
  want=$("$CLI" equity --hand-range "QQ+, AKs" --range "22+, A7s+, KQo" --board Tc8h3s)
  [ -n "$want" ] || fail "quillet-cli equity --hand-range gave nothing"
  # shellcheck disable=SC2086
  read_out $MY_EQUITY_CENTRE
  local mine=$READ_OUT
  # shellcheck disable=SC2086
  read_out $OPP_EQUITY_CENTRE
  step_shot range-equity
  expect_equal "the read-outs against quillet-cli equity --hand-range" \
    "$(printf 'My Equity: %s\nOpp Equity: %s' "$mine" "$READ_OUT")" "$(echo "$want" | head -2)"
  # A range that cannot be read: its error, once, and the read-outs stay blank.
  # shellcheck disable=SC2086
  click $MY_HAND
  xdotool key ctrl+a
  type_text "QQ+, AKx"
  xdotool key Return
  expect_message "My hand is invalid: unknown token 'AKx' at column 6. Valid Eg: AhAd or QQ+, AKs"
  activate "$MAIN"
  found_window "^$PICKER_TITLE\$" && fail "a click in My Hand holding a range opened the picker"
  close_quillet
  expect_equal "the option in the preferences" "$(pref mnuStandardShowdownRules)" "True"
  expect_equal "My Hand kept as typed" "$(pref txtMyHand)" "QQ+, AKx"
}

# expect_grid_notation TEXT: Ctrl+C with the pointer over the grid puts exactly TEXT on the clipboard.
clipboard_is() { [ "$(clipboard)" = "$1" ]; }
# (The pointer comes from the next block: a move with --sync to where it already is would wait for ever.)
grid_ctrl_c() {
  xclip -selection clipboard -i /dev/null
  # shellcheck disable=SC2046
  xdotool mousemove --window "$MAIN" --sync $(block_xy 6 5)
  # shellcheck disable=SC2046
  xdotool mousemove --window "$MAIN" --sync $(block_xy 6 6)
  xdotool key ctrl+c
}
expect_grid_notation() {
  grid_ctrl_c
  poll "the grid's notation to be \"$1\"" clipboard_is "$1"
  log "ok: the range is $1"
}

journey_undo() {
  first_start
  aces_kings_queens
  expect_grid_notation "QQ+"
  # A click on the grid leaves the focus in the Board box, which has nothing of its own to undo: the keys
  # are the window's.
  xdotool key ctrl+z
  expect_grid_notation "KK+"
  xdotool key ctrl+z
  expect_grid_notation "AA"
  step_shot undone
  xdotool key ctrl+shift+z
  expect_grid_notation "KK+"
  xdotool key ctrl+y
  expect_grid_notation "QQ+"
  # A drag of the slider is one step, however far it goes.
  local y=$SLIDER_Y
  xdotool mousemove --window "$MAIN" --sync 90 "$y" mousedown 1
  xdotool mousemove --window "$MAIN" --sync 150 "$y"
  xdotool mousemove --window "$MAIN" --sync 210 "$y" mouseup 1
  step_shot dragged
  local dragged
  grid_ctrl_c
  poll "the grid's notation after the drag" clipboard_has "+"
  dragged=$(clipboard)
  [ "$dragged" != "QQ+" ] || fail "the drag changed nothing"
  xdotool key ctrl+z
  expect_grid_notation "QQ+"
  xdotool key ctrl+shift+z
  expect_grid_notation "$dragged"
  xdotool key ctrl+z
  expect_grid_notation "QQ+"
  close_quillet
  expect_equal "the On layer saved after the steps back" "$(layer Generic On | tr '\n' ' ')" "AA KK QQ "
}

journey_bad_board() {
  first_start
  # shellcheck disable=SC2086
  click_card_box $MY_HAND
  type_text AhKd
  # shellcheck disable=SC2086
  click_card_box $BOARD
  type_text Tc8h
  xdotool key Return
  expect_message "Board invalid. Valid Eg: ThKc4d"
  expect_message "Bad Input"
  activate "$MAIN"
  step_shot after-bad-board
  close_quillet
  expect_equal "My Hand kept after the bad board" "$(pref txtMyHand)" "AhKd"
  expect_equal "the board kept as typed" "$(pref txtBoard)" "Tc8h"
}

# Tab from the percentage box through the slider and on, and Shift+Tab back: the focus passing over the
# slider moves nothing, and the grid still takes clicks afterwards.
journey_slider_tab() {
  first_start
  aces_kings_queens
  expect_grid_notation "QQ+"
  # shellcheck disable=SC2086
  click $RANGE_BOX
  xdotool key Tab
  xdotool key Tab
  step_shot tabbed
  expect_grid_notation "QQ+"
  xdotool key shift+Tab
  xdotool key shift+Tab
  expect_grid_notation "QQ+"
  click_block 3 3 1 shift # JJ joins the range
  expect_grid_notation "JJ+"
  close_quillet
  expect_equal "the On layer saved after the Tabs and a click" "$(layer Generic On | tr '\n' ' ')" "AA JJ KK QQ "
}

# The picker follows the box while it is open: cards typed over the board's are what its OK writes.
journey_picker_typed() {
  first_start
  # shellcheck disable=SC2086
  click_card_box $BOARD
  type_text Ks7d2c
  close_picker
  activate "$MAIN"
  # shellcheck disable=SC2086
  click_card_box $BOARD
  local picker
  picker=$WIN
  xdotool key ctrl+a
  type_text Qh9h4c
  step_shot typed
  picker_ok "$picker"
  poll "the picker to close on OK" no_window "^$PICKER_TITLE\$"
  close_quillet
  # The cards typed, in the picker's cell order (clubs first, then diamonds, hearts, spades).
  expect_equal "the board after typing while the picker was open" "$(pref txtBoard)" "4cQh9h"
}

# The window from the keyboard: Tab from the Board box reaches the grid, the arrows move its frame, Space
# acts as a left click and Shift+Space as a right click; the next Tab reaches the Range box. F9 runs Calc
# Equity.
journey_keyboard() {
  first_start
  # shellcheck disable=SC2086
  click $LBL_CLEAR_ALL
  click_block 0 0 # AA; the click leaves the focus in the Board box
  xdotool key Tab
  xdotool key Right
  step_shot grid-frame
  xdotool key space # AKs, as a left click
  xdotool key Down
  xdotool key shift+space # KK into the Seen layer, as a right click
  xdotool key Tab
  xdotool key End
  type_text ",JJ"
  xdotool key Return
  close_quillet
  expect_equal "the On layer after the grid's keys and the Range box" "$(layer Generic On | tr '\n' ' ')" \
    "AA AKs JJ "
  expect_equal "the Seen layer after Shift+Space" "$(layer Generic Seen | tr '\n' ' ')" "KK "

  restart
  aces_kings_queens
  # shellcheck disable=SC2086
  click_card_box $MY_HAND
  type_text AhKd
  # shellcheck disable=SC2086
  click_card_box $BOARD
  type_text Tc8h3s
  close_picker
  activate "$MAIN"
  local colour
  colour=$("$CLI" equity --hand AhKd --board Tc8h3s --range AA,KK,QQ --json | grep -o '#[0-9A-Fa-f]\{6\}')
  [ -n "$colour" ] || fail "quillet-cli equity gave no colour"
  xdotool key F9
  poll "My Equity to show its colour $colour after F9" read_out_shows "${colour^^}"
  log "ok: F9 ran Calc Equity"
  close_quillet
}

# SIGTERM, SIGHUP and SIGINT close the window as its close box does: the grid's last change is saved. When
# the display goes away the program ends, and writes the change on its way out.
signal_quillet() {
  kill "-$1" "$QUILLET_PID"
  poll "quillet to end on SIG$1" quillet_gone
  wait "$QUILLET_PID" 2>/dev/null
  QUILLET_PID=""
  MAIN=""
  log "quillet ended on SIG$1"
}

journey_end_signals() {
  first_start
  # shellcheck disable=SC2086
  click $LBL_CLEAR_ALL
  close_quillet
  touch -d 2000-01-01 "$SCRATCH/MyPrefs.ini"
  touch -d 2001-01-01 "$SCRATCH/before-signal"
  restart
  click_block 0 0
  signal_quillet TERM
  expect_equal "the On layer saved on SIGTERM" "$(layer Generic On | tr '\n' ' ')" "AA "
  [ "$SCRATCH/MyPrefs.ini" -nt "$SCRATCH/before-signal" ] || fail "MyPrefs.ini was not written on SIGTERM"
  restart
  click_block 1 1
  signal_quillet HUP
  expect_equal "the On layer saved on SIGHUP" "$(layer Generic On | tr '\n' ' ')" "AA KK "
  # A shell's background job starts with SIGINT ignored (and keeps it so); from a terminal it is not.
  LAUNCH="env --default-signal=INT"
  restart
  LAUNCH=""
  click_block 2 2
  signal_quillet INT
  expect_equal "the On layer saved on SIGINT" "$(layer Generic On | tr '\n' ' ')" "AA KK QQ "
  restart
  click_block 3 3
  kill "$XVFB_PID"
  poll "quillet to end when the display goes" quillet_gone
  wait "$QUILLET_PID" 2>/dev/null
  QUILLET_PID=""
  expect_equal "the On layer saved when the display went" "$(layer Generic On | tr '\n' ' ')" "AA JJ KK QQ "
}

# "Equity Heat Map": the last of the Display Options' five items.
tick_heat_map() {
  local before menu sub
  before=$(quillet_windows)
  # shellcheck disable=SC2086
  click $LBL_OPTIONS
  wait_new_window "$before" "the options menu"
  menu=$WIN
  before="$before $menu"
  click_item "$menu" 0 $OPTIONS_ITEMS
  wait_new_window "$before" "the Display Options submenu"
  sub=$WIN
  step_shot display-options
  click_item "$sub" 4 5
  poll "the options menu to close" no_window_id "$menu"
}
# A block's fill, a few pixels in from its top-left corner, with rows of ROW_HEIGHT pixels.
block_fill() { pixel "$MAIN" $((8 + $2 * 34 + 4)) $((144 + $1 * $3 + 4)); }
block_fill_is() { [ "$(block_fill "$1" "$2" "$3")" = "$4" ]; }
# The heat map's colour of an equity: straight from red (0 %) to pale yellow (50 %), on to green (100 %).
heat_colour() {
  awk -v e="$1" 'function mix(a, b, t) { return int(a + (b - a) * t + 0.5) }
    BEGIN {
      if (e < 50) { t = e / 50; r = mix(215, 255, t); g = mix(48, 255, t); b = mix(39, 153, t) }
      else { t = (e - 50) / 50; r = mix(255, 26, t); g = mix(255, 152, t); b = mix(153, 80, t) }
      printf "#%02X%02X%02X\n", r, g, b
    }'
}
class_equity() { grep -o "\"class\":\"$2\",\"equity\":[0-9.e+-]*" <<<"$1" | sed 's/.*://'; }

journey_heat_map() {
  first_start
  aces_kings_queens
  # shellcheck disable=SC2086
  click_card_box $MY_HAND
  type_text AhKd
  # shellcheck disable=SC2086
  click_card_box $BOARD
  type_text Tc8h3s
  close_picker
  local plain_aa plain_72 classes aa qq aa_colour qq_colour
  plain_aa=$(block_fill 0 0 20)
  plain_72=$(block_fill 12 5 20)
  import -window "$MAIN" "$ARTEFACTS/plain-window.png"
  tick_heat_map
  # The expected colours from quillet-cli's equity per class.
  classes=$("$CLI" equity --hand AhKd --board Tc8h3s --range AA,KK,QQ --per-class --json)
  aa=$(class_equity "$classes" AA)
  qq=$(class_equity "$classes" QQ)
  [ -n "$aa" ] && [ -n "$qq" ] || fail "quillet-cli equity --per-class gave no AA or QQ: $classes"
  aa_colour=$(heat_colour "$aa")
  qq_colour=$(heat_colour "$qq")
  # shellcheck disable=SC2086
  click $CMD_CALC_EQUITY
  # Ticked, the rows are 19 pixels high and the legend sits under the grid.
  poll "the AA block to show $aa_colour (my equity $aa %)" block_fill_is 0 0 19 "$aa_colour"
  poll "the QQ block to show $qq_colour (my equity $qq %)" block_fill_is 2 2 19 "$qq_colour"
  log "ok: AA shows $aa_colour, QQ $qq_colour"
  expect_equal "72o, out of the range, keeps its colour" "$(block_fill 12 5 19)" "$plain_72"
  shoot heat-map
  # The tooltip of the aces' block: "my equity ... against its 3 live holdings".
  hover_tooltip $((8 + 17)) $((144 + 9)) aces-tooltip
  # Unticked, the grid is exactly as before.
  tick_heat_map
  poll "the AA block to show its own colour again" block_fill_is 0 0 20 "$plain_aa"
  import -window "$MAIN" "$ARTEFACTS/unticked-window.png"
  close_quillet
  expect_equal "no heat map record while unticked" "$(pref mnuEquityHeatMap)" ""
}

# A weighted range: typed into the Range box with Enter, shown as part-filled blocks with their tooltip,
# painted by a click after a weight typed into the weight box, copied with Ctrl+C over the grid, taken back
# with Ctrl+Z; the cook runs on it.
WEIGHT_BOX="410 421"
# block_part ROW COLUMN FROM_TOP: the colour a block shows FROM_TOP pixels below its top, at its left.
block_part() { pixel "$MAIN" $((8 + $2 * 34 + 4)) $((144 + $1 * 20 + $3)); }
journey_weights() {
  first_start
  local typed="KsKc:0.5, QsQc, JhTh:0.25" printed plain_kk
  printed=$("$CLI" range "$typed" --json | sed -n 's/.*"range":"\([^"]*\)".*/\1/p')
  [ -n "$printed" ] || fail "quillet-cli range gave no text for $typed"
  plain_kk=$(block_part 1 1 2)
  # shellcheck disable=SC2086
  click $NOTATION_BOX
  xdotool key ctrl+a
  type_text "$typed"
  xdotool key Return
  expect_grid_notation "$printed"
  # KK at 50 %: its colour fills the lower half, the upper half keeps the block's plain colour; QQ, whole,
  # is one colour from top to bottom.
  poll "KK's upper half to keep its plain colour" test "$(block_part 1 1 2)" = "$plain_kk"
  [ "$(block_part 1 1 17)" != "$plain_kk" ] || fail "KK's lower half is not coloured"
  expect_equal "QQ filled from top to bottom" "$(block_part 2 2 2)" "$(block_part 2 2 17)"
  [ "$(block_part 3 4 2)" != "$(block_part 3 4 17)" ] || fail "JTs at 25 % is not part-filled"
  import -window "$MAIN" "$ARTEFACTS/weighted-window.png"
  hover_tooltip $((8 + 34 + 17)) $((144 + 20 + 10)) kings-tooltip
  # A weight typed into the weight box paints the next click: AQs at 40 %.
  # shellcheck disable=SC2086
  click $WEIGHT_BOX
  xdotool key ctrl+a
  type_text "40"
  click_block 0 2
  expect_grid_notation "$("$CLI" range "$typed, AQs:0.4" --json | sed -n 's/.*"range":"\([^"]*\)".*/\1/p')"
  [ "$(block_part 0 2 2)" != "$(block_part 0 2 17)" ] || fail "AQs at 40 % is not part-filled"
  # Ctrl+Z takes the click back, weights and all.
  xdotool key ctrl+z
  expect_grid_notation "$printed"
  # The cook runs on the weighted range: its three holdings are in the export.
  # shellcheck disable=SC2086
  click_card_box $MY_HAND
  type_text AhAd
  # shellcheck disable=SC2086
  click_card_box $BOARD
  type_text Tc8h3s
  xdotool key Return
  close_picker
  local before menu
  before=$(quillet_windows)
  # shellcheck disable=SC2086
  click $TREE_FIRST_NODE 3
  wait_new_window "$before" "the results tree's pop-up menu"
  menu=$WIN
  xclip -selection clipboard -i /dev/null
  click_item "$menu" 1 2
  poll "the clipboard to hold the cook's export" clipboard_has "Board: Tc8h3s"
  clipboard >"$SCRATCH/export.txt"
  for holding in "Kc Ks" "Qc Qs" "Jh Th"; do
    grep -qF -- "$holding" "$SCRATCH/export.txt" || fail "the export lacks $holding: $(cat "$SCRATCH/export.txt")"
  done
  # The export is exactly what quillet-cli cook prints for the weighted range: its counts are combinations.
  "$CLI" cook --hand AhAd --board Tc8h3s --range "$typed" >"$SCRATCH/expected-export.txt" ||
    fail "quillet-cli cook refused the weighted range"
  cmp -s "$SCRATCH/export.txt" "$SCRATCH/expected-export.txt" ||
    fail "the export differs from quillet-cli cook: $(diff "$SCRATCH/export.txt" "$SCRATCH/expected-export.txt" | head -20)"
  log "ok: the export equals quillet-cli cook"
  shoot weighted-cook
  # Calc Equity weighs each holding: the read-outs are quillet-cli equity's for the weighted range.
  local want equity
  want=$("$CLI" equity --hand AhAd --board Tc8h3s --range "$typed" | head -2)
  # shellcheck disable=SC2086
  click $CMD_CALC_EQUITY
  weighted_read_outs
  equity=$READ_OUTS
  expect_equal "the weighted read-outs against quillet-cli equity" "$equity" "$want"
  shoot weighted-equity
  close_quillet
  expect_equal "the On layer saved" "$(layer Generic On | tr '\n' ' ')" "JTs KK QQ "
  # After a restart the same weights, the same cook and the same equity come back.
  restart
  expect_grid_notation "$printed"
  # shellcheck disable=SC2086
  click_card_box $BOARD
  xdotool key ctrl+a
  type_text Tc8h3s
  xdotool key Return
  close_picker
  before=$(quillet_windows)
  # shellcheck disable=SC2086
  click $TREE_FIRST_NODE 3
  wait_new_window "$before" "the results tree's pop-up menu"
  menu=$WIN
  xclip -selection clipboard -i /dev/null
  click_item "$menu" 1 2
  poll "the clipboard to hold the cook's export after the restart" clipboard_has "Board: Tc8h3s"
  clipboard >"$SCRATCH/export-again.txt"
  cmp -s "$SCRATCH/export-again.txt" "$SCRATCH/expected-export.txt" ||
    fail "the export after the restart differs: $(diff "$SCRATCH/export-again.txt" "$SCRATCH/expected-export.txt" | head -20)"
  # shellcheck disable=SC2086
  click $CMD_CALC_EQUITY
  weighted_read_outs
  expect_equal "the weighted read-outs after the restart" "$READ_OUTS" "$equity"
  shoot weighted-after-restart
  close_quillet
}
# Both equity read-outs as quillet-cli equity prints them, in READ_OUTS.
READ_OUTS=""
weighted_read_outs() {
  local mine
  # shellcheck disable=SC2086
  read_out $MY_EQUITY_CENTRE
  mine=$READ_OUT
  # shellcheck disable=SC2086
  read_out $OPP_EQUITY_CENTRE
  READ_OUTS=$(printf 'My Equity: %s\nOpp Equity: %s' "$mine" "$READ_OUT")
}

# The multiway window's controls (pixels from its top-left corner, at the size it first opens with); Copy
# sits in its bottom-right corner.
MW_STOP="136 186"
MW_FROM_MAIN="128 126"
MW_BOARD="332 154"

clipboard_empty() { [ -z "$(clipboard)" ]; }

# replace_text TEXT: the box with the keyboard takes TEXT in place of what it held.
replace_text() {
  xdotool key ctrl+a
  type_text "$1"
}

# The multiway window's Copy button, clicked.
click_multiway_copy() {
  local w h
  eval "$(xdotool getwindowgeometry --shell "$1" | sed 's/^/local /')"
  w=$WIDTH
  h=$HEIGHT
  click_in "$1" $((w - 50)) $((h - 22))
}

# The table quillet-cli multiway gives for AhKd, QQ+ and JJ on Tc8h3s, as the window copies it.
multiway_expected() {
  local json
  json=$("$CLI" multiway --player AhKd --player QQ+ --player JJ --board Tc8h3s --json)
  printf 'Multiway equity, board Tc8h3s\nPlayer\tEquity\tWin\tTie\tLive combos\tHand or range\n'
  echo "$json" | grep -o '"equity":[^,]*,"win":[^,]*,"tie":[^}]*' | tr ':,' '  ' |
    awk 'BEGIN { split("AhKd QQ+ JJ", text, " "); split("1 18 6", live, " ") }
         { printf "Player %d\t%.2f%% exact\t%.2f%%\t%.2f%%\t%s\t%s\n", NR, $2, $4, $6, live[NR], text[NR] }'
  echo "Exact: $(echo "$json" | grep -o '"deals":[0-9]*' | tr -dc '0-9') deals"
}

journey_multiway() {
  first_start
  aces_kings_queens
  # shellcheck disable=SC2086
  click_card_box $MY_HAND
  type_text AhKd
  close_picker
  activate "$MAIN"
  xdotool key ctrl+m
  wait_window "^$MULTIWAY_TITLE\$"
  local mw=$WIN
  activate "$mw"
  found_window "^$MAIN_TITLE\$" || fail "the main window went when the multiway window opened"
  step_shot multiway-open
  # Three rows, the keyboard in the first: a bad token in the third is named and nothing runs.
  xdotool key Tab Tab Tab Tab
  type_text "QQ+, AKx"
  xdotool key Return
  expect_message "Player 3 is invalid: unknown token 'AKx' at column 6"
  activate "$mw"
  # A long run: three ranges preflop whose holdings hold nearly every card of the deck, so that no two
  # boards are alike, every deal counted (925 million deals); Stop while it runs.
  replace_text "9h8c, 7d6s, 5c4h, 3s2d, AsKd, QhJc, Td9s, 8d7h, 6c5s"
  xdotool key shift+Tab shift+Tab
  replace_text "5s4s, 3h2h, AdKd, QcJc, Ts9s, 8h7h, 6d5d, 4c3c, 2sAs"
  xdotool key shift+Tab shift+Tab
  replace_text "AhKh, QdJd, Tc9c, 8s7s, 6h5h, 4d3d, 2cAc, KsQs, JhTh"
  xclip -selection clipboard -i /dev/null
  xdotool key Return
  sleep 0.5
  step_shot multiway-running
  # shellcheck disable=SC2086
  click_in "$mw" $MW_STOP
  log "ok: Stop clicked during the long run"
  # Stopped, the run shows nothing: Copy has no table to copy.
  click_multiway_copy "$mw"
  sleep 0.5
  clipboard_empty || fail "a table was copied after Stop: $(clipboard | head -3 | tr '\r\n' '  ')"
  # A quick case: My Hand and the opponent's range again, JJ and a board; Enter, then Copy.
  # shellcheck disable=SC2086
  click_in "$mw" $MW_FROM_MAIN
  # shellcheck disable=SC2086
  click_in "$mw" $MW_BOARD
  replace_text Tc8h3s
  # From the board back over From Main Window, Add Player and the third row's Remove to its box.
  xdotool key shift+Tab shift+Tab shift+Tab shift+Tab
  replace_text JJ
  xdotool key Return
  log "the quick case calculates"
  step_shot multiway-quick
  local expected
  expected=$(multiway_expected)
  poll "the results table to be copied" copy_multiway_table "$mw" "$(echo "$expected" | head -1)"
  expect_equal "the multiway table read back from the clipboard" "$(clipboard | tr -d '\r')" "$expected"
  shoot multiway-results
  xdotool key Escape
  poll "the multiway window to close on Esc" no_window "^$MULTIWAY_TITLE\$"
  close_quillet
  expect_equal "the first player in the preferences" "$(pref MultiwayPlayer1)" "AhKd"
  expect_equal "the third player in the preferences" "$(pref MultiwayPlayer3)" "JJ"
  expect_equal "the multiway board in the preferences" "$(pref MultiwayBoard)" "Tc8h3s"
  local place
  place=$(pref MultiwayWindow)
  [ -n "$place" ] || fail "no MultiwayWindow record in the preferences"
  # The next start opens it at the size it was left with, its boxes as they were.
  restart
  xdotool key ctrl+m
  wait_window "^$MULTIWAY_TITLE\$"
  mw=$WIN
  local size
  size=$(xdotool getwindowgeometry "$mw" | sed -n 's/^ *Geometry: //p')
  expect_equal "the multiway window's size after a restart" "$size" "$(echo "$place" | cut -d, -f3)x$(echo "$place" | cut -d, -f4)"
  close_quillet
  expect_equal "the third player after a restart" "$(pref MultiwayPlayer3)" "JJ"
}
copy_multiway_table() {
  click_multiway_copy "$1"
  clipboard_has "$2"
}

# A profile with weights, added by quillet-cli while the window is closed: picked in the window and cooked,
# the tree's copy is what quillet-cli cook prints for the same weighted range, and closing keeps the weights.
journey_weighted_profile() {
  local weighted="KK:0.5, QQ, AKs:0.25"
  first_start
  close_quillet
  "$CLI" profiles add Villain --range "$weighted" --file "$SCRATCH/Player_Profiles.ini" >/dev/null ||
    fail "quillet-cli profiles add with weights failed"
  restart
  local before list
  before=$(quillet_windows)
  # shellcheck disable=SC2086
  click $PLAYER_ARROW
  wait_new_window "$before" "the player list to open"
  list=$WIN
  click_item "$list" 1 2
  poll "the player list to close" quillet_windows_are "$before"
  # shellcheck disable=SC2086
  click_card_box $MY_HAND
  type_text AhAd
  # shellcheck disable=SC2086
  click_card_box $BOARD
  type_text Tc8h3s
  xdotool key Return
  close_picker
  step_shot cooked
  # shellcheck disable=SC2086
  click $TREE_FIRST_NODE 3
  local menu
  wait_new_window "$before" "the results tree's pop-up menu"
  menu=$WIN
  click_item "$menu" 1 2
  "$CLI" cook --hand AhAd --board Tc8h3s --range "$weighted" >"$SCRATCH/expected-export.txt" ||
    fail "quillet-cli cook failed"
  grep -qF "One pair (9) " "$SCRATCH/expected-export.txt" || fail "quillet-cli cook did not count the weights"
  poll "the clipboard to hold the export" clipboard_has "One pair (9) "
  clipboard >"$SCRATCH/export.txt"
  cmp -s "$SCRATCH/export.txt" "$SCRATCH/expected-export.txt" ||
    fail "the export differs from quillet-cli cook: $(diff "$SCRATCH/export.txt" "$SCRATCH/expected-export.txt" | head -20)"
  log "ok: the weighted export equals quillet-cli cook"
  close_quillet
  expect_equal "Villain's weights after the window closed" \
    "$("$CLI" profiles show Villain --file "$SCRATCH/Player_Profiles.ini" | sed -n 's/^On layer weights: //p')" \
    "QQ, KK:0.5, AKs:0.25"
  [ -f "$SCRATCH/Player_Profiles.ini.weights" ] || fail "no weights file beside the profile file"
}

# The boards report window's controls (pixels from its top-left corner, at the size it first opens with).
BR_RUN="50 42"
BR_MONOTONE="18 68"
BR_EQUITY_HEADING="181 94"
BR_FIRST_ROW="45 112"

# The boards report window's Copy button, clicked (bottom right, left of Export CSV).
click_boards_copy() {
  local w h
  eval "$(xdotool getwindowgeometry --shell "$1" | sed 's/^/local /')"
  w=$WIDTH
  h=$HEIGHT
  click_in "$1" $((w - 142)) $((h - 22))
}
copy_boards_table() {
  click_boards_copy "$1"
  clipboard_has "$2"
}

journey_boards() {
  first_start
  aces_kings_queens
  # shellcheck disable=SC2086
  click_card_box $MY_HAND
  type_text AhKd
  close_picker
  activate "$MAIN"
  xdotool key ctrl+b
  wait_window "^$BOARDS_TITLE\$"
  local br=$WIN
  activate "$br"
  found_window "^$MAIN_TITLE\$" || fail "the main window went when the boards report opened"
  xclip -selection clipboard -i /dev/null
  # Every flop: the report is done once Copy copies its aggregate line.
  poll "the report of every flop" copy_boards_table "$br" "Aggregate: "
  step_shot boards-every-flop
  # Monotone flops only, sorted by equity (highest first).
  # shellcheck disable=SC2086
  click_in "$br" $BR_MONOTONE
  # shellcheck disable=SC2086
  click_in "$br" $BR_EQUITY_HEADING
  xclip -selection clipboard -i /dev/null
  poll "the monotone flops to be copied" copy_boards_table "$br" "Aggregate: "
  clipboard | tr -d '\r' >"$SCRATCH/boards.txt"
  local rows
  rows=$(sed '1d;$d' "$SCRATCH/boards.txt")
  [ -n "$rows" ] || fail "no monotone flop in the table"
  echo "$rows" | cut -f1 | grep -qv '^.\(.\).\1.\1$' &&
    fail "a flop that is not monotone: $(echo "$rows" | cut -f1 | grep -v '^.\(.\).\1.\1$' | head -3)"
  expect_equal "the monotone flops" "$(echo "$rows" | wc -l)" 1012
  echo "$rows" | cut -f3 | tr -d '%' | sort -g -r -c 2>/dev/null || fail "the rows are not sorted by equity"
  log "ok: 1012 monotone flops sorted by equity"
  shoot boards-monotone-by-equity
  local board
  board=$(echo "$rows" | head -1 | cut -f1)
  # A double click on the first row: the main window takes its board and cooks it.
  # shellcheck disable=SC2086
  xdotool mousemove --window "$br" --sync $BR_FIRST_ROW click --repeat 2 --delay 80 1
  activate "$MAIN"
  sleep 0.5
  shoot boards-main-cooked
  local before menu
  before=$(quillet_windows)
  # shellcheck disable=SC2086
  click $TREE_FIRST_NODE 3
  wait_new_window "$before" "the results tree's pop-up menu"
  menu=$WIN
  click_item "$menu" 1 2
  "$CLI" cook --hand AhKd --board "$board" --range AA,KK,QQ >"$SCRATCH/expected-cook.txt" ||
    fail "quillet-cli cook failed"
  poll "the clipboard to hold the cook" clipboard_has "$(head -1 "$SCRATCH/expected-cook.txt" | tr -d '\r')"
  clipboard >"$SCRATCH/cook.txt"
  cmp -s "$SCRATCH/cook.txt" "$SCRATCH/expected-cook.txt" ||
    fail "the cook differs from quillet-cli cook on $board: $(diff "$SCRATCH/cook.txt" "$SCRATCH/expected-cook.txt" | head -20)"
  log "ok: the main window cooked $board"
  # Run again from that flop, Monotone unticked: every turn card, the card grid.
  activate "$br"
  # shellcheck disable=SC2086
  click_in "$br" $BR_MONOTONE
  # shellcheck disable=SC2086
  click_in "$br" $BR_RUN
  xclip -selection clipboard -i /dev/null
  poll "the report of every turn card" copy_boards_table "$br" "turn card"
  shoot boards-turn-grid
  xdotool key Escape
  poll "the boards report to close on Esc" no_window "^$BOARDS_TITLE\$"
  close_quillet
  expect_equal "the board kept" "$(pref txtBoard)" "$board"
  [ -n "$(pref BoardsReportWindow)" ] || fail "no BoardsReportWindow record in the preferences"
}

case "$JOURNEY" in
  first_start | cook_export | grid_layers | profiles | options | picker | equity | card_search | bad_board | \
    notation | range_hand | undo | slider_tab | picker_typed | keyboard | end_signals | heat_map | weights | \
    multiway | weighted_profile | boards)
    log "journey $JOURNEY"
    "journey_$JOURNEY"
    step_shot end
    log "passed"
    ;;
  *)
    echo "unknown journey: $JOURNEY" >&2
    exit 2
    ;;
esac
