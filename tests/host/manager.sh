# A window manager on the virtual display, which gives windows their frames and the keyboard. To be
# sourced behind display.sh.

command -v openbox >/dev/null || skip 'openbox is not installed'

# With a window manager it is that who gives the keyboard.
to_window() { # TITLE
    local window
    wait_until "window '$1'" find_window "$1"
    is_active() { [ "$(xdotool getactivewindow 2>/dev/null)" = "$window" ]; }
    is_active || xdotool windowactivate "$window"
    wait_until "'$1' active" is_active
    wait_until "the keyboard in '$1'" has_focus "$window"
}

start_manager() {
    openbox >"$work/openbox.log" 2>&1 &
    manager=$!
    trap 'kill $manager 2>/dev/null; clean_up' EXIT
    has_manager() { xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'; }
    wait_until 'the window manager' has_manager
}
