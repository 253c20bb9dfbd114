#!/bin/bash
# check.sh PACKAGE SOURCE: the types of the package in PACKAGE, which mypy --strict accepts, in the
# package itself and in a program that uses it; and that the stubs are those of the core's fields.
set -euo pipefail
package=$1 source=$2
export PYTHONPATH=$package MYPYPATH=$package
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

/usr/bin/python3 "$source/python/tools/make_stubs.py" "$work/_criteria.pyi"
diff -u "$source/python/designspec/_criteria.pyi" "$work/_criteria.pyi"

check() {
    /usr/bin/mypy --config-file "$source/python/pyproject.toml" --strict --cache-dir="$work" "$@"
}
check -p designspec
check "$source/tests/python/typed.py"
/usr/bin/python3 -B "$source/tests/python/typed.py"

# What is wrong is told.
sed 's/MaxRad = 9000/MaxRad = "9000"/' "$source/tests/python/typed.py" >"$work/wrong.py"
if check "$work/wrong.py" >/dev/null; then
    echo "a wrong type was not told"
    exit 1
fi
