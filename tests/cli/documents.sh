#!/bin/bash
# documents.sh PROGRAMS SOURCE: the man page and the completion know what the command knows.
set -u

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

manual=$(sed 's/\\-/-/g' "$source/cli/designspec.1")
for command in $commands; do
    grep -q "^\.B[IR]* \"\?$command\b" <<<"$manual" || wrong "man page: no $command"
    offers "$command" "${command:0:1}"
    for option in $(designspec "$command" --help | grep -o -e ' --[a-z-]*'); do
        grep -qF -e "$option" <<<"$manual" || wrong "man page: no $option of $command"
        offers "$option" "$command" --
    done
done
for option in $(designspec --help | sed -n '/^选项:/,/^$/p' | grep -o -e '--[a-z]*'); do
    grep -qF -e "$option" <<<"$manual" || wrong "man page: no $option"
    offers "$option" --
done

project=$source/examples/project
offers 公路二级 --project "$project" --spec 公
offers 城市道路 --project "$project" remove ''
offers interpolate query LonGradMaxLen --mode i
offers CurveWidening show C
offers CircularCurveRad.MaxRad query CircularCurveRad.
offers LonGrad.MinGrad set LonGrad.Min
cur= COMPREPLY=()
_designspec_reply '甲 (1)[副本]$'
[ "${COMPREPLY[0]}" = '甲\ \(1\)\[副本\]\$' ] || wrong "completion: ${COMPREPLY[0]}"
[ "$failures" = 0 ]
