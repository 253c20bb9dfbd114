#!/bin/bash
# windows.sh PROGRAMS SOURCE: the windows 历史…, 批量修改…, 从其他规范取… and 打印预览… of the real host,
# on a small screen with a window manager: each opens over its owner with all of it on the screen,
# and works by keys alone. Ends with 77 where one of these cannot be had.
set -u

. "$(dirname "$0")/display.sh"
. "$(dirname "$0")/manager.sh"
command -v xwininfo >/dev/null || skip 'xwininfo is not installed'

readonly width=1280 height=800
main='^project — 道路设计$'
editor='^设计规范'

designspec() { "$programs/designspec" --project "$project" "$@" 2>>"$work/host.log"; }
radius() { designspec query CircularCurveRad.SuperelevationMinRad --spec "$1" --speed 80; }
radius_is() { [ "$(radius "$1")" = "$2" ]; }
expect_radius() { wait_until "radius of $1 = $2" radius_is "$1" "$2"; }

expect_closed() { # TITLE OWNER
    wait_until "'$1' closed" has_no_window "$1"
    to_window "$2"
}

designspec remove 山区道路 && designspec rename 城市道路 alpha && designspec rename 高速公路 beta &&
    designspec rename 公路二级 gamma &&
    designspec set CircularCurveRad.SuperelevationMinRad --spec alpha --speed 80 260 &&
    designspec set CircularCurveRad.SuperelevationMinRad --spec alpha --speed 80 270 ||
    fail 'the project could not be prepared'
beta=$(radius beta)

start_display ${width}x$height
start_manager
start_host "$project"
keys F5

# 历史…: the version before the present one comes back by keys, and 撤销 in the bar takes that back.
keys ctrl+f Down Home ctrl+shift+h
to_window '^历史$'
expect_over '^历史$' "$main"
keys alt+r
expect_radius alpha 260
keys Escape
expect_closed '^历史$' "$main"
keys alt+u
expect_radius alpha 270

# 批量修改…: 5 is added to the radii of all by keys, and 撤销 takes all back.
sum() { echo $(($(radius alpha) + $(radius beta) + $(radius gamma))); }
sum_is() { [ "$(sum)" = "$1" ]; }
before=$(sum)
keys ctrl+f Down End Home ctrl+a ctrl+shift+b
to_window '^批量修改$'
expect_over '^批量修改$' "$main"
keys alt+p Home Down alt+l End Up Up alt+k Home Down alt+n 5
keys ctrl+Return
expect_closed '^批量修改$' "$main"
changed() { ! sum_is "$before"; }
wait_until 'the radii changed' changed
keys alt+u
wait_until 'the radii as before' sum_is "$before"

# 打印预览…: pages by keys, and the window goes by Esc.
keys ctrl+shift+p
to_window '^打印预览$'
expect_over '^打印预览$' "$main"
keys Next Next Prior ctrl+End ctrl+plus Escape
expect_closed '^打印预览$' "$main"

# 从其他规范取…, over the editor: everything of another one, taken back, taken again, saved.
keys ctrl+f Down End Home Return
to_window "$editor"
keys alt+f
to_window '^从其他规范取值$'
expect_over '^从其他规范取值$' "$editor"
keys alt+g End alt+s Home ctrl+Return
wait_until 'taken' has_no_window '^从其他规范取值$'
to_window "$editor"
keys alt+z
sleep 1 # a button that a key presses stays down for a moment
keys alt+f
to_window '^从其他规范取值$'
keys alt+g End alt+s Home ctrl+Return
wait_until 'taken again' has_no_window '^从其他规范取值$'
to_window "$editor"
keys ctrl+Return
expect_closed "$editor" "$main"
expect_radius alpha "$beta"

leave_host
[ -z "$(find "$project" -name '.lock' -o -name '*.tmp')" ] || fail 'something is left over'
echo 'passed'
