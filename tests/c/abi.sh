#!/bin/bash
# abi.sh LIBRARY PROMISE: holds what the library offers to programs in C against what it has
# promised, designspec-c.abi. Functions may have been added, nothing may have gone or changed.
# After an addition, the promise is written anew:
#   tests/c/abi.sh LIBRARY PROMISE --promise
set -euo pipefail
library=$1 promise=$2

if [ "${3:-}" = --promise ]; then
    abidw --exported-interfaces-only --no-show-locs --no-corpus-path --no-comp-dir-path \
        --no-elf-needed --out-file "$promise" "$library"
    exit
fi

differences() {
    abidiff --exported-interfaces-only --no-added-syms "$1" "$library"
}

if ! differences "$promise"; then
    echo "the promise of the C interface is broken"
    exit 1
fi

# A function, a status, and a place in a struct that are not as promised would be told.
broken=$(mktemp)
trap 'rm -f "$broken"' EXIT
for change in s/designspec_library_open/designspec_library_gone/ \
    "s/name='DESIGNSPEC_FILE_FAILED' value='3'/name='DESIGNSPEC_FILE_FAILED' value='6'/" \
    "s/layout-offset-in-bits='128'/layout-offset-in-bits='512'/"; do
    sed "$change" "$promise" >"$broken"
    cmp -s "$promise" "$broken" && { echo "nothing was changed: $change"; exit 1; }
    if differences "$broken" >/dev/null; then
        echo "not told: $change"
        exit 1
    fi
done
