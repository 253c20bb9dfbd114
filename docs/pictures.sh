#!/bin/bash
# docs/pictures.sh: makes the pictures that the user's guide shows anew, from the windows of the
# programs that ./run has built. They get smaller where optipng is installed.
set -euo pipefail
cd "$(dirname "$0")/.."

roadhost=$PWD/build/release/bin/roadhost
designspec=$PWD/build/release/bin/designspec
guide=docs/user-guide.zh-CN.md
pictures=docs/pictures
work=${TMPDIR:-/tmp}/roadhost-pictures # a window shows it
mkdir "$work"
trap 'rm -rf "$work"' EXIT

# take PROJECT FOLDER [OPTION...]: pictures of all windows, without the numbers before their names.
take() {
    "$roadhost" "$1" --snapshot "${@:2}" >/dev/null || return
    local picture
    for picture in "$2"/*.png; do
        mv "$picture" "$2/${picture#"$2"/[0-9][0-9]-}"
    done
}

# What a colleague has made of the specification that is edited.
theirs=$work/对方
cp -r examples/project "$theirs"
change() { "$designspec" --project "$theirs" --spec 城市道路 set "$@" >/dev/null; }
change BeelineLen.MinLenInOneDir 8
change CircularCurveRad.SuperelevationMinRad --speed 80 270
change CircularCurveRad.SuperelevationMinRad --speed 60 160

# A project with a road beside it, and a specification that was deleted ...
project=$work/示例道路
cp -r examples/project "$project"
mkdir "$project/规范/已删除"
sed -e 's/Style Name="城市道路"/Style Name="旧城区道路"/' -e 's/D3F3F681/7A10C2E5/' \
    "$project"/规范/城市道路*.hds \
    >"$project/规范/已删除/旧城区道路7A10C2E5-EA44-451F-A12E-3EA2063C3DA7.hds"
cp examples/roads/违规.xml "$project"
# ... and what one was before: as it is now, in the end.
edit() { "$designspec" --project "$project" --spec 城市道路 set "$@" >/dev/null; }
edit BeelineLen.MinLenInOneDir 8
edit CircularCurveRad.SuperelevationMinRad --speed 60 160
"$designspec" --project "$project" restore 城市道路 --version 1 >/dev/null
dated() {
    local file
    file=$(ls "$project"/规范/历史/*/"$1"-*)
    mv "$file" "$(sed -e "s/$1-[0-9TZ]*-/$1-$2-/" -e "s/-[^-]*\.hds\$/-$3.hds/" <<<"$file")"
}
dated 000001 20261018T013000Z 张工
dated 000002 20261102T063000Z 李工
dated 000003 20261120T084500Z 张工
# The list of styles tells when each was changed.
touch -d '2026-10-18 09:30' "$project"/规范/*.hds
touch -d '2026-11-20 16:45' "$project"/规范/城市道路*.hds
# ... and a workbook that a colleague has filled in.
"$designspec" --project "$theirs" --spec 城市道路 sheet write "$project/城市道路.xlsx"
take "$project" "$work/all" --open "$project/违规.xml" --theirs "$theirs"/规范/城市道路*.hds
mv "$work/all/道路检核 — 违规.xml.png" "$work/all/道路检核.png"

# ... and the same one with a file that cannot be read, for its messages.
printf '<?xml version="1.0" encoding="UTF-8"?>\n<StyleLibrary>\n  <Group>\n' >"$project/规范/损坏.hds"
take "$project" "$work/broken"
mv "$work/broken/跟踪.png" "$work/all/跟踪.png"

# ... and one in which the name is taken that a new specification would get.
clash=$work/重名
cp -r examples/project "$clash"
sed -e 's/Style Name="城市道路"/Style Name="规范6"/' -e 's/D3F3F681/6A10C2E5/' \
    "$clash"/规范/城市道路*.hds >"$clash/规范/规范66A10C2E5-EA44-451F-A12E-3EA2063C3DA7.hds"
take "$clash" "$work/clashing"
mv "$work/clashing/新建.png" "$work/all/等待名称.png"

rm -rf "$pictures"
mkdir "$pictures"
grep -o 'pictures/[^)]*\.png' "$guide" | sort -u | while read -r picture; do
    cp "$work/all/${picture#pictures/}" "$pictures"
done
if command -v optipng >/dev/null; then
    optipng -quiet -o2 "$pictures"/*.png
fi
