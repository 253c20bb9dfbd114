#!/bin/bash
# road.sh PROGRAMS SOURCE: checks a road as a user does, with keys, in the real host on a virtual
# display with a window manager: from the menu 工具 over the file and a finding to the page of its
# limit; the host ends although the window is open. Ends with 77 where one of these cannot be had.
set -u

. "$(dirname "$0")/display.sh"
. "$(dirname "$0")/manager.sh"

command -v xwininfo >/dev/null || skip 'xwininfo is not installed'

start_display 1600x1000
start_manager
cp "$source/examples/roads/违规.xml" "$project/road.xml"
# The window of --open comes last and has the keyboard.
"$programs/roadhost" "$project" --open "$project/road.xml" >"$work/host.log" 2>&1 &
host=$!
to_window '^道路检核 — road.xml$'
is_below_the_edge() { # with its title
    [ "$(xwininfo -id "$(window_of '^道路检核')" |
        sed -n 's/^ *Absolute upper-left Y: *//p')" -gt 10 ]
}
wait_until 'its title on the screen' is_below_the_edge

# Another one, by the menu; its file is typed.
to_window '^project — 道路设计$'
keys alt+t
sleep 0.5
keys r
to_window '^道路检核$'
keys alt+f
xdotool type --delay 20 "$project/road.xml"
keys Return
wait_until 'both windows with the file' \
    eval '[ "$(xdotool search --onlyvisible --name "^道路检核 — road.xml$" | wc -l)" = 2 ]'

# From the first finding to its limit; neither window is in the way of the page.
sleep 3 # until the road is checked
keys ctrl+f Tab Down Return
to_window '^设计规范 - 城市道路 -- 查看模式$'
keys Escape
wait_until 'the page closed' has_no_window '^设计规范'

leave_host
wait_until 'the check windows gone' has_no_window '^道路检核'
