# What ./run, ./test and some scripts do first; sourced by them. Runs in the project's folder, without standard
# input, on a Debian machine as root or with sudo.

set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
exec </dev/null

# What was compiled in another clone is taken from the compiler cache, debug information too.
export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1

# The last line of a run that did not get through.
fail() {
    echo "$(basename "$0"): $1" >&2
    exit 1
}

# The packages of packages.txt, and those named, that are not installed, one a line.
missing_packages() {
    { grep -v '^#' packages.txt; printf '%s\n' "$@"; } | sed '/^$/d' | sort -u | comm -23 - <(
        dpkg-query -W -f='${db:Status-Status} ${Package}\n' | sed -n 's/^installed //p' | sort -u)
}

# install_packages [PACKAGE...]: those of packages.txt and the ones named.
install_packages() {
    command -v dpkg-query >/dev/null || fail 'packages.txt names Debian packages; this is no Debian'
    local missing as_root=
    missing=$(missing_packages "$@")
    [ -n "$missing" ] || return 0
    echo "Installing: $(echo $missing)"
    if [ "$(id -u)" != 0 ]; then
        as_root='sudo -n'
        $as_root true 2>/dev/null || fail "packages are missing, and there is no sudo: $(echo $missing)"
    fi
    $as_root apt-get -q update || fail 'apt-get update failed'
    $as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get -q install -y --no-install-recommends $missing || fail 'apt-get install failed'
}

# build PRESET: configures where that was not done yet, and builds.
build() {
    local quiet=--quiet # a line for each file only where somebody watches
    [ -t 1 ] && quiet=
    if [ ! -f "build/$1/build.ninja" ]; then
        echo "Building $1; the first time takes some minutes."
        mkdir -p "build/$1"
        cmake --preset "$1" >"build/$1/configure.log" 2>&1 || {
            cat "build/$1/configure.log"
            fail "cmake --preset $1 failed"
        }
    fi
    cmake --build --preset "$1" -- $quiet || fail "cmake --build --preset $1 failed"
}

# run_tests PRESET [CTEST ARGUMENT...]: tells those that were skipped, and counts the others in
# `passed` and `failed`.
run_tests() {
    local report=$PWD/build/$1/report.xml not_run
    # An attribute of the one testsuite that ctest's report holds.
    count() {
        sed -n "s/.*[[:space:]]$1=\"\([0-9]*\)\".*/\1/p" "$report" | head -1
    }
    rm -f "$report"
    ctest --preset "$1" --parallel "$(nproc)" --output-junit "$report" "${@:2}"
    [ -f "$report" ] || fail 'ctest did not run'
    failed=$(count failures)
    not_run=$(($(count skipped) + $(count disabled)))
    passed=$(($(count tests) - failed - not_run))
    [ "$not_run" = 0 ] || echo "$not_run tests were skipped"
}
