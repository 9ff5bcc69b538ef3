#!/usr/bin/env bash
# The hello screen in a real window on a display of its own, used from outside as a person would: pointed at, clicked,
# typed into, resized and closed. What reached the toolkit is read from the viewer's trace, what was drawn from the
# display's memory. Usage: window.sh NUI_VIEWER REPOSITORY. Exit status 77: the display's programs are not installed.
set -euo pipefail

viewer=$1
screen="$2/assets/screens/hello.ui"
. "$(dirname "${BASH_SOURCE[0]}")/display.sh"
. "$(dirname "${BASH_SOURCE[0]}")/trace.sh"

# Where a component of the screen stands in a window of this size: its centre in pixels.
centre_of() { # component, width, height
    local dump="$folder/$1.json"
    "$viewer" "$screen" --headless --size "$2x$3" --frames 3 --dump "$dump" >"$folder/dump.log" 2>&1 ||
        fail "the viewer could not dump the screen"
    tr -d ' \n' <"$dump" | grep -o "\"name\":\"$1\"[^{}]*\"worldPosition\":\[[^]]*\]" |
        sed 's/.*\[//; s/\]//; s/,/ /g' | awk 'NR == 1 { printf "%d %d\n", $1, $2 }'
}

drawn_bytes() { tr -d '\0' <"$folder/Xvfb_screen0" | wc -c; }

open_display 1400x900
echo "ok: display $DISPLAY"

read -r first_x first_y < <(centre_of first 1280 720) || fail "the dump does not tell where 'first' is"
read -r small_x small_y < <(centre_of first 800 600) || fail "the dump does not tell where 'first' is in a small window"
empty=$(drawn_bytes)

"$viewer" "$screen" --trace "$folder/trace.jsonl" >"$folder/viewer.log" 2>&1 &
viewer_pid=$!
pids+=("$viewer_pid")
wait_for "the window" xdotool search --onlyvisible --pid "$viewer_pid"
window=$(xdotool search --onlyvisible --pid "$viewer_pid" | head -n 1)
wait_for "the trace" test -e "$folder/trace.jsonl"
has_drawn() { [ "$(drawn_bytes)" -gt $((empty + 2000)) ]; }
wait_for "something drawn" has_drawn
echo "ok: the window is drawn"

xdotool windowfocus "$window"
# The pointer is in the middle of a new display, where a component may lie already.
xdotool mousemove --window "$window" 3 3
pointer_is_away() { ! grep -F '"hovered":' "$folder/trace.jsonl" | tail -n 1 | grep -qF '"hovered":"first"'; }
wait_for "the pointer in the corner" pointer_is_away
act mousemove --window "$window" "$first_x" "$first_y" -- '"hovered":"first"'
act click 1 -- '"event":"ET_CLICK_EVENT"' '"handler":"first"'
wait_for "the focus" grep -qF '"focus":"first"' "$folder/trace.jsonl"
act key Tab -- '"focus":"second"'
act type n -- '"event":"ET_TEXT_EVENT"' '"text":"n"' '"handler":"second"'
act key Return -- '"event":"ET_KEY_EVENT"' '"key":28' '"pressed":true' '"handler":"second"'
act click 5 -- '"event":"ET_WHEEL_EVENT"'
act mousemove --window "$window" 3 3 -- '"hovered":'
act windowsize "$window" 800 600 mousemove --window "$window" "$small_x" "$small_y" -- '"hovered":"first"'

kill -TERM "$viewer_pid"
ended() { ! kill -0 "$viewer_pid" 2>/dev/null; }
wait_for "the viewer's end" ended
wait "$viewer_pid" || fail "the viewer ended with status $?"
echo "ok: closed"
