#!/usr/bin/env bash
# The gallery in a real window on a display of its own: pages are chosen and the look is switched by the pointer, and what
# is shown is seen to change. Usage: gallery.sh NUI_GALLERY. Exit status 77: the display's programs are not installed.
set -euo pipefail

gallery=$1
limit=30 # seconds that any single wait may take

for program in Xvfb xdotool; do
    command -v "$program" >/dev/null || {
        echo "$program is not installed"
        exit 77
    }
done

folder=$(mktemp -d)
pids=()
trap 'kill "${pids[@]}" 2>/dev/null; wait; rm -rf "$folder"' EXIT

fail() {
    echo "FAILED: $*"
    for file in "$folder"/*.log; do
        [ ! -s "$file" ] || { echo "--- $(basename "$file")" && tail -n 40 "$file"; }
    done
    exit 1
}

# Runs the command until it succeeds.
wait_for() { # what for, command...
    local what=$1 end=$((SECONDS + limit))
    shift
    until "$@" >/dev/null 2>&1; do
        [ "$SECONDS" -lt "$end" ] || fail "waited $limit s for $what"
        sleep 0.05
    done
}

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

Xvfb -displayfd 3 -screen 0 1280x720x24 -fbdir "$folder" -nolisten tcp 3>"$folder/display" >"$folder/xvfb.log" 2>&1 &
pids+=($!)
wait_for "the display" test -s "$folder/display"
DISPLAY=":$(tr -d '[:space:]' <"$folder/display")"
export DISPLAY SDL_VIDEODRIVER=x11
unset WAYLAND_DISPLAY

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

click_changes "another page" 80 210
click_changes "the dark look" 100 686
click_changes "the sheet beside the page" 940 38

kill -TERM "$gallery_pid"
ended() { ! kill -0 "$gallery_pid" 2>/dev/null; }
wait_for "the gallery's end" ended
wait "$gallery_pid" || fail "the gallery ended with status $?"
[ ! -s "$folder/gallery.log" ] || fail "the gallery had something to say"
echo "ok: closed"
