#!/bin/bash
# two-hosts.sh PROGRAMS SOURCE: two people on one project. Each has a host of their own, a process of
# its own with settings of its own, and gets nothing but keys; what comes of them is read from the
# windows' titles and, by the command, from the project's files. Ends with 77 where a display, its
# input or a window manager cannot be had.
set -u

. "$(dirname "$0")/display.sh"
. "$(dirname "$0")/manager.sh"

editor='^设计规范'
settling='^规范已被别人修改$'
first= second=

# Only the windows of the host whose turn it is.
window_of() { # TITLE, a regular expression
    xdotool search --all --onlyvisible --pid "$host" --name "$1" 2>/dev/null | head -1
}
stop_both() {
    kill "$first" "$second" $manager 2>/dev/null
    host=
    clean_up
}

start_as() { # NAME
    XDG_CONFIG_HOME=$work/$1 "$programs/roadhost" "$project" >>"$work/host.log" 2>&1 &
    host=$!
    to_window '^project — 道路设计$'
}

# The files

designspec() { "$programs/designspec" --project "$project" "$@" 2>>"$work/host.log"; }
value() { designspec query "BeelineLen.$1" --spec "$2"; }
value_is() { [ "$(value "$1" "$2")" = "$3" ]; }
expect_value() { wait_until "$1 of $2 = $3" value_is "$1" "$2" "$3"; }
expect_one() { # NAME: one specification of that name, in one file, and no other of its identity
    [ "$(designspec list | awk '{ print $NF }' | grep -c "^$1[-0-9A-F]*[.]hds$")" = 1 ] ||
        fail "not one $1: $(designspec list)"
    [ "$(find "$project/规范" -maxdepth 1 -name '*.hds' | wc -l)" = "$(designspec list | wc -l)" ] ||
        fail "a file too many: $(ls "$project/规范")"
}
expect_aside() { # NUMBER VALUE: so many files set aside, the value of the longest straight in one
    local files
    files=$(find "$project/规范/已删除" -name '*.hds' 2>/dev/null)
    [ "$(echo -n "$files" | grep -c .)" = "$1" ] || fail "not $1 set aside: $files"
    [ -z "${2-}" ] || echo "$files" | tr '\n' '\0' | xargs -0 grep -q "MaxLen=\"$2\"" ||
        fail "nothing set aside has a longest straight of $2"
}

# What a person does

# at HOST: it is that one's turn, in the main window, with the list as the files are.
at() {
    host=$1
    to_window '^project — 道路设计$'
    keys F5
}
# open_editor NAME: the one row that the filter leaves.
open_editor() {
    keys ctrl+f ctrl+a
    xdotool type --delay 20 "$1"
    keys Down Return
    to_window "$editor"
}
# The page of straights is the first: name, tree, then a check box, a number and a button for each.
enter_longest() { enter_behind 3 "$1"; }
enter_shortest() { enter_behind 6 "$1"; }
enter_behind() { # TABS NUMBER
    local i
    for ((i = 0; i < $1; i++)); do keys Tab; done
    keys ctrl+a
    xdotool type --delay 20 "$2"
}
press_ok() {
    to_window "$editor"
    keys ctrl+Return
}
expect_closed() {
    wait_until 'the editor closed' has_no_window "$editor"
    to_window '^project — 道路设计$'
}
# change_longest HOST NAME NUMBER: from the list to the list.
change_longest() {
    at "$1"
    open_editor "$2"
    enter_longest "$3"
    press_ok
    expect_closed
    expect_value MaxLen "$2" "$3"
}
# settle KEYS: the window that tells of the other's change has come, and gets them.
settle() {
    to_window "$settling"
    keys "$@"
    wait_until 'the choice made' has_no_window "$settling"
}

designspec remove 公路二级 && designspec remove 山区道路 && designspec remove 高速公路 &&
    designspec rename 城市道路 road || fail 'the project could not be prepared'
rm -r "$project/规范/已删除"

start_display 1280x900
start_manager
trap stop_both EXIT
start_as first
first=$host
start_as second
second=$host

# The first changes what the second has open and has changed elsewhere: both are kept, by Enter.
at "$second"
open_editor road
change_longest "$first" road 25
host=$second
to_window "$editor"
enter_shortest 7
press_ok
settle Return
expect_closed
expect_value MaxLen road 25
expect_value MinLenInOneDir road 7
expect_one road
expect_aside 0

# The same value: mine, and theirs is set aside.
at "$second"
open_editor road
enter_longest 27
change_longest "$first" road 26
host=$second
press_ok
settle alt+m
expect_closed
expect_value MaxLen road 27
expect_value MinLenInOneDir road 7
expect_aside 1 26

# The same value: theirs, and mine is set aside.
at "$second"
open_editor road
enter_longest 29
change_longest "$first" road 28
host=$second
press_ok
settle alt+t
expect_closed
expect_value MaxLen road 28
expect_one road
expect_aside 2 29

# Back to the editor, where all is as it was entered; then mine.
at "$second"
open_editor road
enter_longest 31
change_longest "$first" road 30
host=$second
press_ok
settle Escape
to_window "$editor"
expect_value MaxLen road 30
press_ok
settle alt+m
expect_closed
expect_value MaxLen road 31
expect_aside 3 30

# Nothing entered: theirs stays, and no window comes before the editor closes.
at "$second"
open_editor road
change_longest "$first" road 32
host=$second
press_ok
expect_closed
expect_value MaxLen road 32
expect_aside 3

# Renamed by the first: its name and the second's value.
at "$second"
open_editor road
enter_longest 33
at "$first"
open_editor road
keys ctrl+a
xdotool type --delay 20 street
press_ok
expect_closed
expect_one street
host=$second
press_ok
settle Return
expect_closed
expect_value MaxLen street 33
expect_one street
expect_aside 3

# remove HOST NAME
remove() {
    at "$1"
    keys ctrl+f ctrl+a
    xdotool type --delay 20 "$2"
    keys Down Delete
    to_window '^删除$'
    keys alt+y
    wait_until 'the answer taken' has_no_window '^删除$'
    to_window '^project — 道路设计$'
    is_gone() { [ -z "$(designspec list)" ]; }
    wait_until "$2 removed" is_gone
}

# Removed by the first, saved anew by the second.
at "$second"
open_editor street
enter_longest 34
remove "$first" street
host=$second
press_ok
settle alt+m
expect_closed
expect_value MaxLen street 34
expect_one street
expect_aside 4 33

# Removed by the first, and left so by the second: what was entered is set aside.
at "$second"
open_editor street
enter_longest 35
remove "$first" street
host=$second
press_ok
settle alt+t
expect_closed
[ -z "$(designspec list)" ] || fail 'it is there again'
expect_aside 6 35

for host in "$first" "$second"; do
    to_window '^project — 道路设计$'
    keys ctrl+q
    wait "$host" || fail "the host ended with status $?"
done
[ -z "$(find "$project" -name '.lock' -o -name '*.tmp')" ] || fail 'something is left over'
echo 'passed'
