# What the tests in a real window share: a folder, a display of their own, and waiting. Sourced; ends the script with status
# 77 where the display's programs are not installed.

limit=30 # seconds that any single wait may take

for program in Xvfb xdotool; do
    command -v "$program" >/dev/null || {
        echo "$program is not installed"
        exit 77
    }
done

folder=$(mktemp -d)
pids=() # what ends with the script
trap 'kill "${pids[@]}" 2>/dev/null; wait; rm -rf "$folder"' EXIT

# Ends the test and shows what the programs said.
fail() { # why
    echo "FAILED: $*"
    for file in "$folder"/*.log "$folder"/*.jsonl; do
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

# A display whose memory is the file Xvfb_screen0 in the folder; it says which number it took.
open_display() { # width x height
    Xvfb -displayfd 3 -screen 0 "$1x24" -fbdir "$folder" -nolisten tcp -noreset 3>"$folder/display" >"$folder/xvfb.log" 2>&1 &
    pids+=($!)
    wait_for "the display" test -s "$folder/display"
    DISPLAY=":$(tr -d '[:space:]' <"$folder/display")"
    export DISPLAY SDL_VIDEODRIVER=x11
    unset WAYLAND_DISPLAY
}
