#!/bin/bash
# check.sh BUILD SOURCE COMPILER [FLAGS]: installs BUILD, builds examples/consumer against that and
# checks what it prints for examples/project.
set -euo pipefail

build=$1 source=$2 compiler=$3 flags=${4:-}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix

cmake --install "$build" --prefix "$prefix" >"$work/install.log"
cp -r "$source/examples/consumer" "$work/consumer"

# main.cpp includes two headers; all of them must be there and compile.
(cd "$prefix/include" && find . -name '*.h' -printf '#include <%P>\n' | sort) \
    >"$work/consumer/headers.cpp"
# A program may call its own things what it likes: none of them takes the place of the library's.
cat >>"$work/consumer/headers.cpp" <<'OWN'
struct Field { int own; };
struct Problem { int own; };
struct Finding { int own; };
std::wstring Trim(std::wstring_view) { return L"cut"; }
std::wstring ToWide(std::string_view) { return L"cut"; }
std::string ToUtf8(std::wstring_view) { return "cut"; }
std::string NativePath(const std::wstring&) { return "cut"; }
bool ParseInt(std::string_view, int& value) { return value = 7, true; }
bool EqualNoCase(std::wstring_view, std::wstring_view) { return true; }
void Trace(const std::wstring&) {}
OWN
echo 'target_sources(consumer PRIVATE headers.cpp)' >>"$work/consumer/CMakeLists.txt"

cmake -G Ninja -S "$work/consumer" -B "$work/build" \
    -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_COMPILER="$compiler" \
    -DCMAKE_CXX_FLAGS="-Wall -Wextra -Werror $flags" \
    >"$work/configure.log" || { cat "$work/configure.log"; exit 1; }
cmake --build "$work/build" -- --quiet

"$work/build/consumer" "$source/examples/project" >"$work/answers"
diff -u "$source/examples/answers.txt" "$work/answers"

# What README shows of the library, in a program that has nothing else.
block() { sed -n "/^\`\`\`$1\$/,/^\`\`\`\$/p" "$source/README.md" | sed '1d;$d'; }
mkdir "$work/readme" "$work/readme/road"
cp -r "$source/examples/project/规范" "$work/readme/road"
{
    printf 'cmake_minimum_required(VERSION 3.25)\nproject(mine LANGUAGES CXX)\nadd_executable(mine main.cpp)\n'
    block cmake
} >"$work/readme/CMakeLists.txt"
{
    block cpp | grep '^#include'
    echo 'int main() {'
    block cpp | grep -v '^#include'
    echo 'return library.Item(L"城市道路") ? 0 : 1; }'
} >"$work/readme/main.cpp"
cmake -G Ninja -S "$work/readme" -B "$work/readme/build" -DCMAKE_PREFIX_PATH="$prefix" \
    -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_FLAGS="$flags" >"$work/configure.log" ||
    { cat "$work/configure.log"; exit 1; }
cmake --build "$work/readme/build" -- --quiet
(cd "$work/readme" && build/mine)

# A program in C needs the header and the library alone.
libraries=$(dirname "$(find "$prefix" -name libdesignspec-c.so)")
read -ra use < <(PKG_CONFIG_PATH=$libraries/pkgconfig pkg-config --cflags --libs designspec-c)
# shellcheck disable=SC2086
cc -std=c99 -Wall -Wextra -Wpedantic -Werror $flags "$source/examples/consumer-c/main.c" \
    "${use[@]}" -Wl,-rpath,"$libraries" -o "$work/consumer-c"
"$work/consumer-c" "$source/examples/project" >"$work/answers"
diff -u "$source/examples/answers.txt" "$work/answers"

# What README shows of it: 200 m is between the limits of 60 and 80 km/h.
{
    block c | grep '^#include'
    echo 'int main(void) {'
    block c | grep -v '^#include'
    echo 'return radius == 200 ? 0 : 1; }'
} >"$work/readme/mine.c"
command=$(sed -n 's/.*`\(cc -std=c99 mine.c .*\)`.*/\1/p' "$source/README.md")
(
    cd "$work/readme"
    export PKG_CONFIG_PATH=$libraries/pkgconfig LD_LIBRARY_PATH=$libraries
    eval "$command $flags" && ./a.out
)

# The same questions in Python, where its package is built, get the same answers.
if [ -d "$build/python/designspec" ]; then
    PYTHONPATH=$build/python /usr/bin/python3 -B "$source/examples/consumer-python/main.py" \
        "$source/examples/project" >"$work/answers"
    diff -u "$source/examples/answers.txt" "$work/answers"
    {
        block python
        echo 'raise SystemExit(radius != 200)'
    } >"$work/readme/mine.py"
    (cd "$work/readme" && PYTHONPATH=$build/python /usr/bin/python3 -B mine.py)
fi

# The command finds the library beside it, wherever both have been put.
mv "$prefix" "$work/moved"
answer=$("$work/moved/bin/designspec" --project "$source/examples/project" \
    query CircularCurveRad.SuperelevationMinRad --speed 60)
[ "$answer" = 150 ]
"$work/moved/bin/designspec" --project "$source/examples/project" \
    verify "$source/examples/roads/合格.xml" >"$work/verified"
for file in share/man/man1/designspec.1 share/man/zh_CN/man1/designspec.1 \
    share/bash-completion/completions/designspec; do
    [ -s "$work/moved/$file" ] || { echo "not installed: $file"; exit 1; }
done
# The modules come with their host.
if [ -e "$work/moved/bin/roadhost" ]; then
    for file in user-guide.zh-CN.md pictures/样式管理器.png; do
        [ -s "$work/moved/share/roadhost/guide/$file" ] || { echo "not installed: $file"; exit 1; }
    done
    # It finds its modules: without them there is nothing to report.
    "$work/moved/bin/roadhost" "$source/examples/project" --report "$work/report.html" --spec 公路二级
    grep -q 公路二级 "$work/report.html"
    for file in share/man/man1/roadhost.1 share/man/zh_CN/man1/roadhost.1 \
        share/applications/roadhost.desktop share/mime/packages/roadhost.xml \
        share/icons/hicolor/scalable/apps/roadhost.svg; do
        [ -s "$work/moved/$file" ] || { echo "not installed: $file"; exit 1; }
    done
fi

# Nothing is loaded from the current folder.
programs=0
while IFS= read -r file; do
    paths=$(readelf -d "$file" 2>/dev/null | sed -n 's/.*(R\(UN\)\?PATH).*\[\(.*\)\]/\2/p') || continue
    [ -n "$paths" ] || continue
    programs=$((programs + 1))
    if tr ':' '\n' <<<"$paths" | grep -qvE '^(/|\$ORIGIN(/|$))'; then
        echo "$file: search path $paths"
        exit 1
    fi
done < <(find "$work/moved" -type f \( -perm -100 -o -name '*.so*' -o -name '*.arx' \))
[ "$programs" -ge 2 ] || { echo "only $programs programs and libraries have a search path"; exit 1; }
