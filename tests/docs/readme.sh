#!/bin/bash
# readme.sh PROGRAMS SOURCE: every command of README's section does what it says, in its order, on a
# copy of the example project.
set -uo pipefail
programs=$1 source=$2
export PATH=$programs:$PATH LC_ALL=C.UTF-8
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/build"
cp -r "$source/examples" "$work/examples"
cd "$work" || exit 1

# The lines that are commands as they stand; the first one tells of all.
lines=$(sed -n '/^## The command/,/^## /s/^    //p' "$source/README.md" | grep -v '^designspec \[')
[ "$(wc -l <<<"$lines")" -ge 20 ] || { echo 'the section has lost its commands'; exit 1; }

failed=0
while IFS= read -r line; do
    wanted=0
    case $line in
    *' verify '*违规* | *' diff '*) wanted=1 ;; # a road that violates limits, two that differ
    esac
    eval "$line" >"$work/out" 2>"$work/err"
    status=$?
    if [ "$status" != "$wanted" ]; then
        echo "status $status instead of $wanted: $line"
        cat "$work/out" "$work/err"
        failed=1
    elif [ "$wanted" = 1 ] && ! [ -s "$work/out" ]; then
        echo "says nothing: $line"
        failed=1
    fi
done <<<"$lines"
for made in report.html grades.json 公路二级.xlsx all.hds; do
    [ -s "$made" ] || { echo "not made: $made"; failed=1; }
done
exit $failed
