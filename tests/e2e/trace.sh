# What the tests of the viewer in a real window share: doing something and waiting for what the trace says of it. Sourced after
# display.sh; the trace is the file trace.jsonl in the folder.

mark=0 # lines of the trace that count no more

traced() { # what the trace has to hold from the mark on: a text, or several in one line
    local lines text
    lines=$(tail -n "+$((mark + 1))" "$folder/trace.jsonl")
    for text in "$@"; do
        lines=$(grep -F -e "$text" <<<"$lines") || return 1
    done
}

# From here on only new lines of the trace count.
mark_trace() { mark=$(wc -l <"$folder/trace.jsonl"); }

# Does something with xdotool and waits for what it makes the trace say.
act() { # words for xdotool, "--", texts that one line of the trace has to hold
    local words=()
    while [ "$1" != -- ]; do
        words+=("$1")
        shift
    done
    shift
    mark_trace
    xdotool "${words[@]}" || fail "xdotool ${words[*]}"
    wait_for "a line with $* after '${words[*]}'" traced "$@"
    echo "ok: ${words[*]} -> $*"
}
