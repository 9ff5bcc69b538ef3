#!/usr/bin/env bash
# A styled screen in a real window while its files are edited: hover and press change what is seen, and so does a saved
# sheet; a faulty sheet leaves the picture and is told. Colours are read from the display's memory.
# Usage: style.sh NUI_VIEWER. Exit status 77: the display's programs are not installed.
set -euo pipefail

viewer=$1
. "$(dirname "${BASH_SOURCE[0]}")/display.sh"

now() { date +%s%3N; } # milliseconds

number_at() { od -An -tu4 --endian=big -j "$1" -N 4 "$folder/Xvfb_screen0" | tr -d ' '; }

# The colour at a place of the display, as rrggbb. The memory is an XWD image: a header, the colour map, and the rows.
pixel() { # x, y
    local header colours row
    header=$(number_at 0)
    colours=$(number_at 76)
    row=$(number_at 48)
    od -An -tx1 -j $((header + 12 * colours + $2 * row + 4 * $1)) -N 3 "$folder/Xvfb_screen0" |
        awk '{ print $3 $2 $1 }'
}

shows() { [ "$(pixel "$1" "$2")" = "$3" ]; } # x, y, rrggbb

# Waits for a colour. The time since a moment is told, not tested: it goes by what else the machine does.
expect_since() { # moment, x, y, rrggbb, what
    wait_for "$5: $4 at $2,$3, where $(pixel "$2" "$3") is" shows "$2" "$3" "$4"
    echo "ok: $5 ($(($(now) - $1)) ms)"
}

expect() { expect_since "$(now)" "$@"; } # x, y, rrggbb, what

write_sheet() { # colour of the stage
    cat >"$folder/look.css" <<END
#stage { background: $1; }
button { background: #202020; }
button:hover { background: #404040; }
button:active { background: #808080; }
END
}

write_screen() { # width of the button
    cat >"$folder/screen.ui" <<END
{"type": "widget", "name": "stage", "size": [0, 0, 1, 1], "children": [
    {"type": "button", "name": "ok", "size": [$1, 100], "anchor": "top-left", "position": [200, 200]}]}
END
}

write_sheet '#ff0000'
write_screen 100

open_display 800x600
echo "ok: display $DISPLAY"

"$viewer" "$folder/screen.ui" --style "$folder/look.css" --size 800x600 >"$folder/viewer.log" 2>&1 &
viewer_pid=$!
pids+=("$viewer_pid")
wait_for "the window" xdotool search --onlyvisible --pid "$viewer_pid"
window=$(xdotool search --onlyvisible --pid "$viewer_pid" | head -n 1)
xdotool windowmove "$window" 0 0 windowfocus "$window"
xdotool mousemove --window "$window" 3 3
eval "$(xdotool getwindowgeometry --shell "$window" | grep -E '^[XY]=')" # where the window's inside begins
at_stage="$((X + 500)) $((Y + 500))"
at_button="$((X + 250)) $((Y + 250))"
right_of_button="$((X + 350)) $((Y + 250))"

expect $at_stage ff0000 "the sheet styles the window"
expect $at_button 202020 "a button at rest"
xdotool mousemove --window "$window" 250 250
expect $at_button 404040 "a button under the pointer"
xdotool mousedown 1
expect $at_button 808080 "a pressed button"
xdotool mouseup 1
expect $at_button 404040 "a released button"

start=$(now)
write_sheet '#0000ff'
expect_since "$start" $at_stage 0000ff "a saved sheet"
expect $at_button 404040 "the button is still under the pointer"

start=$(now)
echo "#stage { background: #00ff00 }" >"$folder/look.css"
lower_edge="$((X + 780)) $((Y + 590))"
expect_since "$start" $lower_edge 3a0d0d "the message of a faulty sheet"
shows $at_stage 0000ff || fail "a faulty sheet changed the picture to $(pixel $at_stage)"
wait_for "the fault in the log" grep -qF "look.css:1:30: " "$folder/viewer.log"

start=$(now)
write_sheet '#00ff00'
mv "$folder/look.css" "$folder/look.css~" # away, and back as another file
cp "$folder/look.css~" "$folder/look.css"
expect_since "$start" $at_stage 00ff00 "the sheet mended"
expect $lower_edge 00ff00 "no message any more"

xdotool mousemove --window "$window" 3 3
start=$(now)
write_screen 300
expect_since "$start" $right_of_button 202020 "a saved template"

kill -TERM "$viewer_pid"
ended() { ! kill -0 "$viewer_pid" 2>/dev/null; }
wait_for "the viewer's end" ended
wait "$viewer_pid" || fail "the viewer ended with status $?"
echo "ok: closed"
