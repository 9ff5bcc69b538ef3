#!/usr/bin/env bash
# The screens of settings and login in real windows on a display of their own, used from outside as a person would: texts of
# several scripts are typed, Tab goes through the fields, mouse and keys choose from a combo and a list, a slider is
# dragged and dialogs are answered. What reached the toolkit is read from the viewer's trace, what came of it from its dump.
# Usage: controls.sh NUI_VIEWER REPOSITORY. Exit status 77: the display's programs are not installed.
set -euo pipefail

viewer=$1
assets="$2/assets"
. "$(dirname "${BASH_SOURCE[0]}")/display.sh"
. "$(dirname "${BASH_SOURCE[0]}")/trace.sh"
export LC_ALL=C.UTF-8 # for what xdotool types, and for the window's side of it

# Gives each of the letters a key of its own, so that none is borrowed and taken back before it is read.
teach_keys() { # letters
    local i keys=""
    for ((i = 0; i < ${#1}; i++)); do
        keys+="override key <I$((150 + i))> { [ $(printf 'U%04X' "'${1:i:1}") ] };"$'\n'
    done
    xkbcomp -xkb "$DISPLAY" "$folder/keys.xkb" 2>/dev/null || fail "the display does not tell its keys"
    awk -v keys="$keys" '/^xkb_symbols/ { inside = 1 } inside && /^};/ { printf "%s", keys; inside = 0 } { print }' \
        "$folder/keys.xkb" >"$folder/taught.xkb"
    xkbcomp -w0 "$folder/taught.xkb" "$DISPLAY" 2>/dev/null || fail "the display does not take new keys"
}

# Opens a screen of the assets in a window and waits until it takes the pointer.
open_screen() { # name, component that the pointer is put on
    screen=("$assets/screens/$1.ui" --style "$assets/style/light.css" --style "$assets/screens/$1.css")
    dump_places '{"frames": 2}'
    rm -f "$folder/trace.jsonl" "$folder/end.json"
    mark=0
    "$viewer" "${screen[@]}" --script "$assets/screens/$1-dialogs.json" --stay \
        --trace "$folder/trace.jsonl" --dump "$folder/end.json" >"$folder/viewer.log" 2>&1 &
    viewer_pid=$!
    pids+=("$viewer_pid")
    wait_for "the window" xdotool search --onlyvisible --pid "$viewer_pid"
    window=$(xdotool search --onlyvisible --pid "$viewer_pid" | head -n 1)
    wait_for "the trace" test -e "$folder/trace.jsonl"
    xdotool windowfocus "$window"
    point_until "$2"
}

# Plays the steps without a window and keeps where everything stands then.
dump_places() { # steps of a script
    echo "[$1, {\"dump\": \"$folder/places.json\"}]" >"$folder/places.script"
    "$viewer" "${screen[@]}" --headless --script "$folder/places.script" >"$folder/places.log" 2>&1 ||
        fail "the viewer could not dump the screen"
}

# The centre of a component in pixels, of the n-th of the name from 0 on.
place() { # component, n
    grep -o "\"name\":\"$1\"[^{}]*\"worldPosition\":\[[^]]*\]" "$folder/places.json" |
        awk -F '[][,]' -v n="${2:-0}" 'NR == n + 1 { printf "%d %d\n", $(NF - 3), $(NF - 2) }'
}

point() { # component, n
    local x y
    read -r x y < <(place "$@") || fail "the dump does not tell where '$1' is"
    xdotool mousemove --window "$window" "$x" "$y"
}

# Moves the pointer to and fro on a component until it is hovered: while a dialog comes or goes nothing is.
point_until() { # component
    local x y
    read -r x y < <(place "$1") || fail "the dump does not tell where '$1' is"
    mark_trace
    shift_pointer() {
        if [ $((x % 2)) -eq 0 ]; then x=$((x + 1)); else x=$((x - 1)); fi
        xdotool mousemove --window "$window" "$x" "$y" && traced "\"hovered\":\"$1\""
    }
    wait_for "the pointer on $1" shift_pointer "$1"
}

click() { # component, n, "--", texts that one line of the trace has to hold
    local words=()
    while [ "$1" != -- ]; do
        words+=("$1")
        shift
    done
    point "${words[@]}"
    act click 1 "$@"
}

# Ends the viewer and keeps what it dumps.
close_screen() {
    kill -TERM "$viewer_pid"
    wait_for "the viewer's end" test -s "$folder/end.json"
    wait "$viewer_pid" || fail "the viewer ended with status $?"
    [ ! -s "$folder/viewer.log" ] || fail "the viewer had something to say"
}

# What a component was in the end: its dump from the name to its rules, where the state lies.
ended_with() { # component, texts
    local name=$1 text line
    shift
    line=$(grep -o "\"name\":\"$name\"[^{}]*" "$folder/end.json") || fail "there is no $name in the end"
    for text in "$@"; do
        grep -qF -e "$text" <<<"$line" || fail "$name has not $text but $line"
    done
    echo "ok: $name: $*"
}

open_display 1400x900
teach_keys "éàëäöمرحبا日本語さくら"

open_screen settings name
click motto -- '"focus":"motto"'
act type "déjà مرحبا 日本語" -- '"event":"ET_TEXT_EVENT"' '語","handler"'
act key Tab -- '"focus":"language"'
act key shift+Tab -- '"focus":"motto"'
act key Home Delete -- '"key":211,"pressed":true,"handler":"motto"'

click language -- '"event":"ET_CLICK_EVENT"' '"handler":"language"'
dump_places '{"click": "language"}, {"frames": 2}'
items=$(grep -o '"name":"item"' "$folder/places.json" | wc -l) # the five rows of the combo's list come last
point item $((items - 5 + 3))
act click 1 -- '"event":"ET_CLICK_EVENT"' '"handler":"combo"'
dump_places '{"frames": 2}'
point_until reset

click item 2 -- '"focus":"servers"' # the first item is the text of the selector, the second the first row
act key Down Return -- '"key":28,"pressed":false,"handler":"servers"'

read -r x y < <(place thumb)
act mousemove --window "$window" "$x" "$y" mousedown 1 -- '"event":"ET_MOUSE_EVENT","action":1'
act mousemove --window "$window" $((x + 40)) "$y" -- '"event":"ET_DRAG_EVENT","action":0'
act mousemove --window "$window" 900 "$y" -- '"event":"ET_DRAG_EVENT","action":2'
act mouseup 1 -- '"event":"ET_DRAG_EVENT","action":1'

point_until reset
act click 1 -- '"focus":"bNo"'
act key Escape -- '"key":1,"pressed":false,"handler":"bNo"'
act key Return -- '"focus":null'
point_until apply
act click 1 -- '"focus":"bOK"'
act key Escape -- '"focus":null'
point_until apply

close_screen
ended_with motto '"text":"éjà مرحبا 日本語"'
ended_with language '"text":"日本語"' '"selected":3'
ended_with servers '"selected":2'
ended_with volume '"value":100'
! grep -qF '"type":"Dialog"' "$folder/end.json" || fail "a dialog is left"

open_screen login name
click name -- '"focus":"name"'
act type "Zoë さくら" -- '"event":"ET_TEXT_EVENT"' 'ら","handler"'
act key Tab -- '"focus":"password"'
act type "pässwörd" -- '"event":"ET_TEXT_EVENT"' 'd","handler"'
act key Tab -- '"focus":"code"'
act type "20267" -- '"event":"ET_TEXT_EVENT"' '7","handler"'
act key Tab -- '"focus":"language"'
act key Tab Tab -- '"focus":"sign-in"'
act key Return -- '"focus":"bYes"'
dump_places '{"dialog": {"answers": {"yes": "", "no": "", "cancel": ""}, "icon": "warning", "close": true, "message": "a"}}, {"wait": 0.4}'
click bNo -- '"event":"ET_CLICK_EVENT"' '"handler":"bNo"'
dump_places '{"frames": 2}'
point_until remember
act click 1 -- '"event":"ET_CLICK_EVENT"' '"handler":"remember"'

close_screen
ended_with name '"text":"Zoë さくら"'
ended_with password '"text":"pässwörd"'
ended_with code '"text":"2026"'
ended_with remember '"text":"Remember me on this machine"' '"focused":true'
! grep -qF '"type":"Dialog"' "$folder/end.json" || fail "a dialog is left"
echo "ok: closed"
