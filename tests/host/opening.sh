#!/bin/bash
# opening.sh PROGRAMS SOURCE: files that are double-clicked. The host is started as the desktop entry
# says, with a file and nothing else, and opens the project of the last time: a file of specifications
# is offered for import, a road is checked. Keys do the rest. Ends with 77 where a display or its input
# cannot be had.
set -u

. "$(dirname "$0")/display.sh"
. "$(dirname "$0")/manager.sh"

# double_click FILE: what the desktop does then.
double_click() {
    local entry=$source/host/desktop/roadhost.desktop call
    read -ra call < <(sed -n 's/^Exec=//p' "$entry" | sed 's/ %F$//')
    PATH=$programs:$PATH "${call[@]}" "$1" >"$work/host.log" 2>&1 &
    host=$!
}
specifications() { "$programs/designspec" --project "$project" list | wc -l; }
are() { [ "$(specifications)" = "$1" ]; }

start_display 1600x1000
start_manager
start_host "$project"
leave_host
"$programs/designspec" --project "$project" new 园区道路 --from 城市道路 &&
    "$programs/designspec" --project "$project" export "$work/园区 道路.hds" 园区道路 &&
    "$programs/designspec" --project "$project" remove 园区道路 || fail 'no file to open'
are 4 || fail 'the example has another number of specifications'

double_click "$work/园区 道路.hds"
to_window '^导入$'
keys Escape
wait_until 'nothing imported' has_no_window '^导入$'
are 4 || fail 'imported although it was declined'
leave_host

double_click "$work/园区 道路.hds"
to_window '^导入$'
keys alt+i
wait_until 'one imported' are 5
leave_host

# One of the project's own is there already: it is shown, and nothing is asked.
double_click "$(echo "$project"/规范/山区道路*.hds)"
to_window '^project — 道路设计$'
sleep 1
has_no_window '^导入$' || fail 'its own file offered for import'
keys F4
to_window '^设计规范 - 山区道路 -- 查看模式$'
keys Escape
wait_until 'the editor closed' has_no_window '^设计规范'
leave_host

double_click "$source/examples/roads/违规.xml"
to_window '^道路检核 — 违规.xml$'
leave_host
echo 'passed'
