#!/bin/bash
# desktop.sh PROGRAMS SOURCE: a person at a desktop, from start to file. The host runs as a process
# of its own on a virtual display and gets nothing but keys and clicks; what comes of them is read
# from its windows' titles and from the project's files. Ends with 77 where a display or its input
# cannot be had.
set -u

. "$(dirname "$0")/display.sh"

# Files

# A file of the project as lines of UTF-8, whether it is that or UTF-16.
lines() {
    if [ "$(head -c 2 "$1" | od -An -tx1)" = ' ff fe' ]; then
        iconv -f UTF-16 -t UTF-8 "$1"
    else
        cat "$1"
    fi | tr -d '\r'
}
# The identity that setting.ini names.
default_id() { lines "$project/规范/setting.ini" | sed -n 's/.*=//p'; }
file_of() { echo "$project"/规范/"$1"*.hds; } # NAME of a specification
id_of() { # NAME of a specification
    local name
    name=$(basename "$(file_of "$1")" .hds)
    echo "${name#"$1"}"
}
is_default() { [ "$(default_id)" = "$1" ]; }

# The number that a row of the radius page has for a speed in the specification's file.
radius() { # NAME ROW SPEED
    lines "$(file_of "$1")" | sed -n "/<CircularCurveRad>/,/<\/CircularCurveRad>/p" |
        sed -n "/<$2>/,/<\/$2>/s/.*speed=\"$3\" value=\"\([0-9]*\)\".*/\1/p"
}
radius_is() { [ "$(radius "$1" "$2" "$3")" = "$4" ]; }

# What the person does

# make_default ROW NAME: the row of the list, counted from 0, is NAME's.
make_default() {
    to_list
    local i
    for ((i = 0; i < $1; i++)); do keys Down; done
    keys ctrl+d
    wait_until "$2, in row $1, made the default" is_default "$(id_of "$2")"
}
# The first row of the list, selected.
to_list() { keys ctrl+f Down Up Up Up Up; }

# change_radius ROW NUMBER: in the specification of that row of the list, the first radius.
change_radius() {
    to_list
    local i
    for ((i = 0; i < $1; i++)); do keys Down; done
    keys Return
    to_window '^设计规范'
    local dialog
    dialog=$(window_of '^设计规范')
    keys Tab Down Down
    click "$dialog" 425 143
    keys ctrl+a
    xdotool type --delay 20 "$2"
    keys Tab
    click "$dialog" -137 -25
    wait_until 'the dialog closed' has_no_window '^设计规范'
    to_window '^project — 道路设计$'
}

radius_is 高速公路 noSuperelevationMinRad 120 5500 || fail 'the example has another radius'
content() { lines "$1" | sed 1d; } # all but the line that names the encoding
before=$(content "$(file_of 高速公路)")

start_display 1280x900
start_host "$project"

# The list shows all specifications in the order of their names: each can be made the default.
make_default 3 山区道路
make_default 2 公路二级
make_default 0 城市道路
make_default 1 高速公路

change_radius 1 5600
wait_until 'the radius in the file' radius_is 高速公路 noSuperelevationMinRad 120 5600
changed=$(content "$(file_of 高速公路)" | diff - <(echo "$before") | grep -c '^[<>]')
[ "$changed" = 2 ] || fail "more than that line of the file has changed: $changed"

# The next start opens the same project without being told; default and radius are what they were.
leave_host
start_host
is_default "$(id_of 高速公路)" || fail 'the default was not kept'
radius_is 高速公路 noSuperelevationMinRad 120 5600 || fail 'the radius was not kept'
change_radius 1 5700
wait_until 'the radius changed once more' radius_is 高速公路 noSuperelevationMinRad 120 5700
is_default "$(id_of 高速公路)" || fail 'the default was lost with a change'
leave_host
echo 'passed'
