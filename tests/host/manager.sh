# A window manager on the virtual display, which gives windows their frames and the keyboard. To be
# sourced behind display.sh.

command -v openbox >/dev/null || skip 'openbox is not installed'

# With a window manager it is that who gives the keyboard.
to_window() { # TITLE
    local window
    wait_until "window '$1'" find_window "$1"
    is_active() { [ "$(xdotool getactivewindow 2>/dev/null)" = "$window" ]; }
    # Asked again: the manager may not know a new window yet.
    become_active() { is_active || { xdotool windowactivate "$window" && is_active; }; }
    wait_until "'$1' active" become_active
    wait_until "the keyboard in '$1'" has_focus "$window"
}

start_manager() {
    openbox >"$work/openbox.log" 2>&1 &
    manager=$!
    trap 'kill $manager 2>/dev/null; clean_up' EXIT
    has_manager() { xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'; }
    wait_until 'the window manager' has_manager
}

# Where windows are; `width` and `height` are those of the screen.

# place WINDOW: sets X, Y, WIDTH and HEIGHT of what is inside its frame.
place() {
    eval "$(xwininfo -id "$1" | sed -n \
        -e 's/^ *Absolute upper-left X: */X=/p' -e 's/^ *Absolute upper-left Y: */Y=/p' \
        -e 's/^ *Width: */WIDTH=/p' -e 's/^ *Height: */HEIGHT=/p')"
}
# is_on_the_screen TITLE: with its frame, left, right, top and bottom of which the manager tells.
is_on_the_screen() {
    local window frame
    window=$(window_of "$1")
    frame=$(xprop -id "$window" _NET_FRAME_EXTENTS | sed -n 's/.*= //p' | tr -d ,)
    [ -n "$frame" ] || return 1
    set -- $frame
    place "$window"
    [ $((X - $1)) -ge 0 ] && [ $((X + WIDTH + $2)) -le "$width" ] &&
        [ $((Y - $3)) -ge 0 ] && [ $((Y + HEIGHT + $4)) -le "$height" ]
}
# The window manager takes a moment.
expect_on_the_screen() { wait_until "'$1' on the screen" is_on_the_screen "$1"; }

# is_over TITLE OWNER: its middle is near that of its owner.
is_over() {
    local middle
    place "$(window_of "$2")"
    middle=$((X + WIDTH / 2))
    place "$(window_of "$1")"
    middle=$((X + WIDTH / 2 - middle))
    [ "${middle#-}" -le 60 ]
}
expect_over() {
    expect_on_the_screen "$1"
    wait_until "'$1' over its owner" is_over "$1" "$2"
}
