# The command at work on a copy of the example project; sourced by ./run after setup.sh.

# copy_example FOLDER: a copy of the example project, unless there is one already.
copy_example() {
    [ -d "$1" ] && return
    mkdir -p "$(dirname "$1")"
    cp -r examples/project "$1" || fail "examples/project could not be copied to $1"
}

# Shows a command, then what it prints.
show() {
    printf '\n$'
    printf ' %s' "$@"
    echo
    "$@" || fail "$1 ended with status $?"
}

# The same for two that differ.
show_differing() {
    printf '\n$'
    printf ' %s' "$@"
    echo
    "$@"
    [ $? = 1 ] || fail "$1 found no difference"
}

# run_demo PROJECT
run_demo() {
    export PATH=$programs:$PATH
    local roads=$PWD/examples/roads
    cd "$1" || fail "no folder $1"
    local file=规范/公路二级18864BD6-435F-4597-9CFB-F7F4982F42F6.hds
    cp "$file" ../before.hds

    echo
    echo "The command, in a copy of the example project. To go on by hand:"
    echo "  cd $1"
    echo "  export PATH=$programs:\$PATH"

    show designspec list
    show designspec show CircularCurveRad
    show designspec query CircularCurveRad.SuperelevationMinRad --speed 70 --mode interpolate
    show designspec query MaxResultantGrad.CityRoad --speed 60
    show designspec query LonGradMaxLen --grad 6 --speed 60
    show designspec query SuperElevation --max-super 6 --speed 80 --radius 500
    show designspec query CurveWidening --car 普通汽车 --radius 120
    show designspec verify "$roads/合格.xml"
    show designspec --spec 公路二级 set CircularCurveRad.SuperelevationMinRad --speed 60 135
    show designspec report 公路二级 --compare 城市道路 -o report.html
    echo "$PWD/report.html"
    show_differing designspec diff ../before.hds 公路二级
    show designspec sheet write 公路二级 ../公路二级.xlsx
}
