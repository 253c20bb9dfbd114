#!/bin/bash
# compare.sh PROGRAMS SOURCE: a person compares two specifications and takes values over. The host
# runs as a process of its own on a virtual display and gets nothing but keys; what comes of them is
# read from the windows' titles and, by the command, from the project's files. Ends with 77 where a
# display, its input or a window manager cannot be had.
set -u

. "$(dirname "$0")/display.sh"
. "$(dirname "$0")/manager.sh"

main='^project — 道路设计$'
comparing='^比较规范$'

designspec() { "$programs/designspec" --project "$project" "$@" 2>>"$work/host.log"; }
value() { designspec query "BeelineLen.$1" --spec "$2"; }
value_is() { [ "$(value "$1" "$2")" = "$3" ]; }
expect_value() { wait_until "$1 of $2 = $3" value_is "$1" "$2" "$3"; }
# All values of a specification, without what tells it from others.
content() { designspec --spec "$1" show | sed 1d | grep -v "$1"; }

# Both that there are: the filter leaves them, and Ctrl+A selects them.
open_window() {
    to_window "$main"
    keys ctrl+f Down ctrl+a ctrl+shift+c
    to_window "$comparing"
}
expect_closed() {
    wait_until 'the window closed' has_no_window "$comparing"
    to_window "$main"
}

designspec remove 公路二级 && designspec remove 山区道路 &&
    designspec rename 城市道路 alpha && designspec rename 高速公路 beta &&
    designspec set BeelineLen.MinLenInOneDir 7 --spec alpha ||
    fail 'the project could not be prepared'
[ "$(content alpha)" != "$(content beta)" ] || fail 'there is nothing to compare'
before=$(content beta)
straight=$(value MinLenInOneDir beta)
[ "$straight" != 7 ] || fail 'the straights are the same'

start_display 1280x900
start_manager
start_host "$project"
keys F5

# A page in the tree, a value in the list: from the left to the right, undone and done again.
open_window
keys Down Down Tab alt+Right ctrl+z ctrl+y
[ "$(content beta)" = "$before" ] || fail 'something was written before 确定'
keys ctrl+Return
expect_closed
expect_value MinLenInOneDir beta 7
changed=$(diff <(content beta) <(echo "$before") | grep -c '^[<>]')
[ "$changed" = 2 ] || fail "not one line of beta has changed, but $changed"

# Esc asks, and gives up what was taken.
open_window
keys alt+Left Escape
to_window '^提示$'
keys alt+y
expect_closed
value_is MinLenInOneDir alpha 7 || fail 'what was given up was written'

# All from the right to the left.
open_window
keys alt+Left ctrl+Return
expect_closed
same() { [ "$(content alpha)" = "$(content beta)" ]; }
wait_until 'both the same' same

leave_host
[ -z "$(find "$project" -name '.lock' -o -name '*.tmp')" ] || fail 'something is left over'
echo 'passed'
