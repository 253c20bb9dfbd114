# What the tests of whole windows share: a virtual display, the host as a process of its own, keys
# and clicks. To be sourced by bash; sets `programs`, `source`, `work` and `project`, a copy of the
# example. Ends with 77 where a display or its input cannot be had.

skip() {
    echo "skipped: $1"
    exit 77
}
command -v Xvfb >/dev/null || skip 'Xvfb is not installed'
command -v xdotool >/dev/null || skip 'xdotool is not installed'

# Titles are searched for as text, not bytes.
export LC_ALL=C.UTF-8

programs=$1
source=$2
work=$(mktemp -d)
project=$work/project
display_server=
host=

clean_up() {
    [ -n "$host" ] && kill "$host" 2>/dev/null
    [ -n "$display_server" ] && kill "$display_server" 2>/dev/null
    wait
    rm -rf "$work"
}
trap clean_up EXIT

# fail TEXT: says what is wrong, with what the host said and the windows that are there.
fail() {
    echo "FAILED: $1"
    sed 's/^/roadhost: /' "$work/host.log" 2>/dev/null
    xdotool search --onlyvisible --name '.' getwindowname %@ 2>/dev/null | sed 's/^/window: /'
    exit 1
}

# wait_until WHAT COMMAND...: until the command succeeds, half a minute at most.
wait_until() {
    local what=$1 end=$((SECONDS + 30))
    shift
    until "$@"; do
        [ "$SECONDS" -lt "$end" ] || fail "waited in vain: $what"
        sleep 0.05
    done
}

# Windows

window_of() { # TITLE, a regular expression
    xdotool search --onlyvisible --name "$1" 2>/dev/null | head -1
}
# Sets `window`: asked a second time, the same window may not be found, while others come and go.
find_window() {
    window=$(window_of "$1")
    [ -n "$window" ]
}
has_window() { [ -n "$(window_of "$1")" ]; }
has_no_window() { ! has_window "$1"; }
has_focus() { [ "$(xdotool getwindowfocus 2>/dev/null)" = "$1" ]; }

# to_window TITLE: waits for the window and gives it the keyboard.
to_window() {
    local window
    wait_until "window '$1'" find_window "$1"
    xdotool windowfocus "$window"
    wait_until "the keyboard in '$1'" has_focus "$window"
}
keys() { xdotool key --clearmodifiers --delay 20 "$@"; }

start_display() { # WIDTHxHEIGHT
    local number=$work/display
    # It must not start anew whenever its only client, xdotool, has gone, nor repeat a key that is let
    # go late, where the machine has much to do.
    Xvfb -displayfd 3 -noreset -r -screen 0 "$1x24" -nolisten tcp 3>"$number" \
        >"$work/display.log" 2>&1 &
    display_server=$!
    wait_until 'the virtual display' test -s "$number"
    DISPLAY=:$(cat "$number")
    export DISPLAY
}

start_host() { # [PROJECT]
    "$programs/roadhost" "$@" >"$work/host.log" 2>&1 &
    host=$!
    to_window '^project — 道路设计$'
}

leave_host() {
    to_window '^project — 道路设计$'
    keys ctrl+q
    wait "$host" || fail "the host ended with status $?"
    host=
}

click() { # WINDOW X Y, from the window's corner; negative: from the opposite one
    local WIDTH HEIGHT x=$2 y=$3
    eval "$(xdotool getwindowgeometry --shell "$1" | grep -E '^(WIDTH|HEIGHT)=')"
    [ "$x" -ge 0 ] || x=$((WIDTH + x))
    [ "$y" -ge 0 ] || y=$((HEIGHT + y))
    xdotool mousemove --window "$1" "$x" "$y" click 1
}

cp -r "$source/examples/project" "$project"
# The host's settings are the test's own, and so is the size of its text.
export HOME=$work XDG_CONFIG_HOME=$work/config XDG_RUNTIME_DIR=$work QT_FONT_DPI=96
unset QT_QPA_PLATFORM QT_SCALE_FACTOR WAYLAND_DISPLAY
export QT_QPA_PLATFORM=xcb
