#!/bin/bash
# placing.sh PROGRAMS SOURCE: where windows open and how large, on a small screen with large text and
# a window manager, which gives them frames. Ends with 77 where one of these cannot be had.
set -u

. "$(dirname "$0")/display.sh"
. "$(dirname "$0")/manager.sh"
command -v xwininfo >/dev/null || skip 'xwininfo is not installed'

readonly width=1280 height=720
export QT_SCALE_FACTOR=1.5
editor='^设计规范'

# Pixels of the screen are parts of those that windows count in.
near() { [ "$1" -ge $(($2 - $3)) ] && [ "$1" -le $(($2 + $3)) ]; }
has_size() { # WINDOW WIDTH HEIGHT
    place "$1"
    near "$WIDTH" "$2" 3 && near "$HEIGHT" "$3" 3
}
is_at() { # WINDOW X Y
    place "$1"
    near "$X" "$2" 3 && near "$Y" "$3" 3
}

open_editor() {
    keys ctrl+f Down Return
    to_window "$editor"
    dialog=$(window_of "$editor")
}
close_editor() {
    keys Escape
    wait_until 'the editor closed' has_no_window "$editor"
    to_window '^project — 道路设计$'
}

start_display ${width}x$height
start_manager
start_host "$project"
expect_on_the_screen '^project — 道路设计$'

# The editor is over its owner, and all of it on the screen.
open_editor
expect_over "$editor" '^project — 道路设计$'

# Its buttons are within reach: 确定 closes it.
click "$dialog" -205 -37
wait_until 'the editor closed by 确定' has_no_window "$editor"
to_window '^project — 道路设计$'

# Made smaller and moved ...
open_editor
xdotool windowsize "$dialog" 600 400
wait_until 'a smaller editor' has_size "$dialog" 600 400
xdotool windowmove "$dialog" 300 200
wait_until 'the editor moved' is_at "$dialog" 300 200
close_editor

# ... it stays so, however often it is opened, and in the next run.
for _ in 1 2 3; do
    open_editor
    wait_until 'the editor where it was' is_at "$dialog" 300 200
    wait_until 'the editor as small as it was' has_size "$dialog" 600 400
    close_editor
done
leave_host
start_host
open_editor
wait_until 'the editor as small as in the run before' has_size "$dialog" 600 400
expect_on_the_screen "$editor"
close_editor
leave_host

# Pictures are taken without a display, and show windows as large as they are on a usual one.
(
    unset DISPLAY QT_QPA_PLATFORM QT_SCALE_FACTOR
    "$programs/roadhost" "$project" --snapshot "$work/pictures" >"$work/host.log" 2>&1
) || fail 'no pictures'
for picture in "$work"/pictures/01-*.png; do
    wide=$(od -An -j16 -N4 -tu4 --endian=big "$picture") # of its head
    [ "$wide" -gt 900 ] || fail "the picture of the host is $wide wide"
done
echo 'passed'
