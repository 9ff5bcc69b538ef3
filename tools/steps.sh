# What the commands run and test share: steps that print one line each and keep their output in a log file, which is
# shown only when the step fails. To be sourced with `root` and `log` set to the repository and that file.
# shellcheck shell=bash disable=SC2154

export HOME="${HOME:-/root}"
[ -w "$HOME" ] || export CCACHE_DIR="${CCACHE_DIR:-$root/build/ccache}"

step() { # what it does, then the command
    local what=$1 status=0
    shift
    echo "$what"
    mkdir -p "$(dirname "$log")"
    LC_ALL=C.UTF-8 "$@" >"$log" 2>&1 </dev/null || status=$?
    if [ "$status" -ne 0 ]; then
        tail -n 200 "$log" >&2
        echo "failed: $what (the whole output is in $log)" >&2
    fi
    return "$status"
}

configure() { # preset
    (cd "$root" && cmake --preset "$1")
}

build() { # preset, target...
    local preset=$1
    shift
    cmake --build "$root/build/$preset" --target "$@"
}
