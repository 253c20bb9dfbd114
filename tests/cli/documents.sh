#!/bin/bash
# documents.sh PROGRAMS SOURCE: the man page and the completion know what the command knows.
set -u
export LC_ALL=C.UTF-8

PATH=$1:$PATH
source=$2
failures=0
wrong() {
    echo "$1"
    failures=$((failures + 1))
}

commands=$(designspec --help | sed -n '/^命令:/,/^$/s/^  \([a-z]\+\) .*/\1/p')
[ "$(echo "$commands" | wc -l)" -ge 13 ] || wrong "commands found in the help: $commands"

# complete WORD...: what completion offers for the last word of the line.
complete_words() {
    COMP_WORDS=(designspec "$@")
    COMP_CWORD=$#
    COMPREPLY=()
    _designspec
    printf '%s\n' "${COMPREPLY[@]-}"
}
. "$source/cli/designspec.bash-completion"

# offers WANTED WORD...: fails unless WANTED is among what is offered.
offers() {
    local wanted=$1
    shift
    grep -qxF -e "$wanted" <<<"$(complete_words "$@")" || wrong "completion: no '$wanted' for: $*"
}

paragraphs=()
for page in designspec.1 designspec.zh_CN.1; do
    manual=$(sed 's/\\-/-/g' "$source/cli/$page")
    for command in $commands; do
        grep -q "^\.B[IR]* \"\?$command\b" <<<"$manual" || wrong "$page: no $command"
        for option in $(designspec "$command" --help | grep -o -e '^  --[a-z-]*'); do
            grep -qF -e "$option" <<<"$manual" || wrong "$page: no $option of $command"
        done
    done
    for option in $(designspec --help | sed -n '/^选项:/,/^$/p' | grep -o -e '--[a-z]*'); do
        grep -qF -e "$option" <<<"$manual" || wrong "$page: no $option"
    done
    paragraphs+=($(grep -c '^\.\(TP\|SH\|SS\|PP\)' "$source/cli/$page"))
done
[ "${paragraphs[0]}" = "${paragraphs[1]}" ] || wrong "paragraphs of the man pages: ${paragraphs[*]}"
for command in $commands; do
    offers "$command" "${command:0:1}"
    for option in $(designspec "$command" --help | grep -o -e '^  --[a-z-]*'); do
        offers "$option" "$command" --
    done
done
for option in $(designspec --help | sed -n '/^选项:/,/^$/p' | grep -o -e '--[a-z]*'); do
    offers "$option" --
done

project=$source/examples/project
offers 公路二级 --project "$project" --spec 公
offers 城市道路 --project "$project" remove ''
offers interpolate query LonGradMaxLen --mode i
offers CurveWidening show C
offers write sheet w
offers 公路二级 --project "$project" sheet write 公
for command in 'sheet write' 'sheet read'; do
    for option in $(designspec $command --help | grep -o -e '^  --[a-z-]*'); do
        offers "$option" $command --
        grep -qF -e "${option//-/\\-}" "$source/cli/designspec.1" || wrong "no $option of $command"
    done
done
offers CircularCurveRad.MaxRad query CircularCurveRad.
offers LonGrad.MinGrad set LonGrad.Min

# Blanks in paths and names, quoted in either way; --option=value, which the shell breaks in three.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/my road"
cp -r "$project/规范" "$work/my road"
designspec --project "$work/my road" new '甲 (1)'
designspec --project "$work/my road" remove 高速公路 2>/dev/null
for road in "'$work/my road'" "\"$work/my road\"" "$work/my\ road"; do
    offers '甲\ \(1\)' --project "$road" --spec ''
done
offers '甲 (1)' --project "$work/my\ road" remove "'甲"
offers 公路二级 --project = "$project" --spec = 公
offers 公路二级 --project="$project" --spec=公
offers 公路二级 --project="$project" --spec =
offers 普通汽车 --project "$project" query CurveWidening --car 普
offers 铰接列车 --project "$project" --spec 公路二级 query CurveWidening --car ''
offers 公路二级 --project "$project" export all.hds 城市道路 公
offers 高速公路 --project "$work/my\ road" restore ''
designspec --project "$project" export "$work/all of them.hds"
offers 山区道路 import "$work/all\ of\ them.hds" 山

cur= COMPREPLY=()
_designspec_reply '甲 (1)[副本]$'
[ "${COMPREPLY[0]}" = '甲\ \(1\)\[副本\]\$' ] || wrong "completion: ${COMPREPLY[0]}"
[ "$failures" = 0 ]
