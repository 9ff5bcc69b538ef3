#!/usr/bin/env bash
# The gallery in a real window on a display of its own: pages are chosen, the look is switched, controls and dialogs are used by
# pointer and keys, and what is shown is seen to change. Usage: gallery.sh NUI_GALLERY. Exit status 77: the display's programs
# are not installed.
set -euo pipefail

gallery=$1
. "$(dirname "${BASH_SOURCE[0]}")/display.sh"

picture() { cksum <"$folder/Xvfb_screen0"; }

# A picture that was the same three times in a row.
rest() {
    local last now same=0 end=$((SECONDS + limit))
    last=$(picture)
    while [ "$same" -lt 3 ]; do
        [ "$SECONDS" -lt "$end" ] || fail "the picture does not come to rest"
        sleep 0.1
        now=$(picture)
        if [ "$now" = "$last" ]; then same=$((same + 1)); else same=0; fi
        last=$now
    done
    echo "$last"
}

# Clicks, takes the pointer away, and sees to it that something else is shown.
click_changes() { # what, x, y
    local before after
    xdotool mousemove --window "$window" 600 4
    before=$(rest)
    xdotool mousemove --window "$window" "$2" "$3"
    sleep 0.1
    xdotool click 1
    sleep 0.1
    xdotool mousemove --window "$window" 600 4
    after=$(rest)
    [ "$before" != "$after" ] || fail "nothing changed: $1"
    echo "ok: $1"
}

open_display 1280x720

empty=$(picture)
"$gallery" >"$folder/gallery.log" 2>&1 &
gallery_pid=$!
pids+=("$gallery_pid")
wait_for "the window" xdotool search --onlyvisible --pid "$gallery_pid"
window=$(xdotool search --onlyvisible --pid "$gallery_pid" | head -n 1)
has_drawn() { [ "$(picture)" != "$empty" ]; }
wait_for "something drawn" has_drawn
xdotool windowfocus "$window"
sleep 0.3

# The same for a key of the keyboard.
key_changes() { # what, key
    local before after
    before=$(rest)
    xdotool key "$2"
    sleep 0.1
    after=$(rest)
    [ "$before" != "$after" ] || fail "nothing changed: $1"
    echo "ok: $1"
}

click_changes "another page" 80 224
click_changes "the dark look" 100 688
click_changes "the sheet beside the page" 940 38
click_changes "the page of lists" 80 394
click_changes "another row of the list" 300 276
click_changes "the list of a combo" 680 190
click_changes "a click beside that list" 100 690
click_changes "the page of dialogs" 80 530
click_changes "a question" 456 215
key_changes "Yes by Return" Return
click_changes "a message" 308 215
key_changes "Escape" Escape
click_changes "the keyboard on the screen" 80 564

kill -TERM "$gallery_pid"
ended() { ! kill -0 "$gallery_pid" 2>/dev/null; }
wait_for "the gallery's end" ended
wait "$gallery_pid" || fail "the gallery ended with status $?"
[ ! -s "$folder/gallery.log" ] || fail "the gallery had something to say"
echo "ok: closed"
