# What ./package does in an empty Debian tree; sourced by it. Uses its `packages`, `tree`, `work` and
# `check`.

# Without a network: what is missing is missing.
in_tree() {
    env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive \
        unshare --net --pid --fork --mount-proc="$tree/proc" chroot "$tree" "$@"
}

# What this machine gets its Debian from, as lines of sources.list.
debian_sources() {
    apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' |
        grep -E "^deb [^ ]+ $VERSION_CODENAME(-| )" | sort -u
}
# Settings of apt that sources of this machine may need.
apt_settings() {
    apt-config dump | grep -E '^Acquire::(Check-Valid-Until|Check-Date|https?::Proxy) '
}

# What the packages name that is not among them, first choices only, one a line.
needed_of_debian() {
    local package
    for package in "$packages"/*.deb; do
        dpkg-deb -f "$package" Depends | tr ',' '\n' | sed 's/ *\([^ |(]*\).*/\1/'
    done | sort -u | grep -v designspec
}

# The tree has what the packages depend on and nothing else; what is needed to compile is fetched, but
# installed only when nothing can lean on it by mistake any more.
compilers='g++ cmake make pkg-config'
make_tree() {
    local sources=$work/sources.list settings=$work/apt.conf
    . /etc/os-release
    debian_sources >"$sources"
    apt_settings >"$settings"
    [ -s "$sources" ] || { echo "apt has no sources of $VERSION_CODENAME"; return 1; }
    mmdebstrap --mode=root --variant=apt --quiet --aptopt="$settings" --skip=cleanup/apt \
        --customize-hook="chroot \"\$1\" apt-get clean" \
        --customize-hook="chroot \"\$1\" apt-get -q -y --no-install-recommends --download-only \
            install $compilers >/dev/null" \
        --include="$(needed_of_debian | paste -sd,),fonts-wqy-microhei,shared-mime-info,libglib2.0-bin" \
        "$VERSION_CODENAME" "$tree" "$sources"
}

# Every file of the tree but what programs of Debian leave of themselves.
files() {
    (cd "$tree" && find . -path ./proc -prune -o -path ./sys -prune -o -path ./dev -prune -o \
        -path ./var/log -prune -o -path ./var/cache -prune -o \
        -path ./tmp -prune -o -path ./root/.cache -prune -o -print | sort)
}

quietly() { # COMMAND...: says what it has said only when it failed
    "$@" >"$work/log" 2>&1 || { cat "$work/log"; return 1; }
}
install_in_tree() { # PACKAGE...: of ours
    local package files=()
    for package; do files+=("/packages/$(basename "$packages/$package"_*.deb)"); done
    quietly in_tree apt-get -q -y --no-install-recommends install "${files[@]}"
}

expect() { # TEXT COMMAND...: runs it in the tree
    local answer
    answer=$(in_tree "${@:2}") && [ "$answer" = "$1" ] && return
    echo "expected '$1', not '$answer', of: ${*:2}"
    return 1
}

use_command() {
    expect 150 designspec --project /examples/project query CircularCurveRad.SuperelevationMinRad \
        --speed 60 &&
        expect 1 sh -c 'designspec --project /examples/project verify /examples/roads/违规.xml \
            --spec 城市道路 --car 普通汽车 >/dev/null; echo $?' &&
        in_tree sh -c 'cd /tmp && designspec --project /examples/project sheet write 公路二级 \
            road.xlsx && [ -s road.xlsx ]' &&
        in_tree test -s /usr/share/man/man1/designspec.1.gz
}
use_host() {
    in_tree roadhost /examples/project --snapshot /tmp/pictures /examples/roads/违规.xml \
        >"$work/pictures" || return 1
    # Both modules were found, with the guide.
    local window
    for window in 平面-圆曲线半径 '道路检核 — 违规.xml' 使用指南; do
        grep -q "$window" "$work/pictures" || { echo "no picture: $window"; return 1; }
    done
    in_tree roadhost /examples/project --report /tmp/report.html --spec 公路二级 &&
        grep -q 公路二级 "$tree/tmp/report.html"
}
use_python() {
    expect 1.0.0 python3 -c \
        'import importlib.metadata; print(importlib.metadata.version("designspec"))' &&
        in_tree sh -c 'python3 /examples/consumer-python/main.py /examples/project |
            diff /examples/answers.txt -'
}
is_of_type() { # TYPE FILE
    expect "  standard::content-type: $1" sh -c \
        "gio info -a standard::content-type '$2' | grep content-type"
}
# By name and by contents; other files *.xml stay what they are.
use_mime_types() {
    local specification
    specification=$(cd "$tree" && echo examples/project/规范/公路二级*.hds)
    iconv -t UTF-16 "$tree/$specification" >"$tree/tmp/utf-16.hds"
    cp "$tree/$specification" "$tree/tmp/nameless"
    cp "$tree/examples/roads/违规.xml" "$tree/tmp/road.landxml"
    echo '<?xml version="1.0"?><other/>' >"$tree/tmp/other.xml"
    is_of_type application/x-designspec "/$specification" &&
        is_of_type application/x-designspec /tmp/utf-16.hds &&
        is_of_type application/x-designspec /tmp/nameless &&
        is_of_type application/x-landxml /tmp/road.landxml &&
        is_of_type application/x-landxml /examples/roads/违规.xml &&
        is_of_type application/xml /tmp/other.xml
}

use_headers() {
    # shellcheck disable=SC2086
    quietly in_tree apt-get -q -y --no-install-recommends install $compilers || return 1
    files >"$work/before"
    install_in_tree libdesignspec1 libdesignspec-dev &&
        in_tree sh -c 'cmake -S /examples/consumer -B /tmp/consumer >/dev/null &&
            cmake --build /tmp/consumer >/dev/null &&
            /tmp/consumer/consumer /examples/project | diff /examples/answers.txt - &&
            cc -std=c99 -Wall -Werror /examples/consumer-c/main.c \
                $(pkg-config --cflags --libs designspec-c) -o /tmp/consumer-c &&
            /tmp/consumer-c /examples/project | diff /examples/answers.txt -'
}

remove_all() {
    # shellcheck disable=SC2046
    quietly in_tree dpkg --purge $(in_tree dpkg-query -W -f '${Package}\n' |
        grep -E 'designspec|roadhost') || return 1
    files >"$work/after"
    diff "$work/before" "$work/after"
}

check_in_tree() {
    local name names=()
    for name in "$packages"/*.deb; do
        name=${name##*/}
        names+=("${name%%_*}")
    done
    check 'an empty tree' make_tree || return
    cp -r examples "$tree/examples"
    cp -r "$packages" "$tree/packages"
    files >"$work/before"
    check 'installing' install_in_tree "${names[@]}"
    check 'the command' use_command
    check 'the host' use_host
    check 'the module of Python' use_python
    check 'the MIME types' use_mime_types
    check 'removing without a rest' remove_all
    check 'programs in C++ and C' use_headers
    check 'removing them as well' remove_all
}
