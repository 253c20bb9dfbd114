# The libraries of the tree, each with its reason. The list of Debian packages is in packages.txt.
find_package(PkgConfig REQUIRED)

find_package(pugixml REQUIRED)                     # XML files: small, fast, no entities resolved
find_package(fmt REQUIRED)                         # printf-style formats for wide text
pkg_check_modules(utf8proc REQUIRED IMPORTED_TARGET libutf8proc) # UTF-8, case folding
find_package(CLI11 REQUIRED)                       # the command's options and help
find_package(nlohmann_json REQUIRED)               # --json output
find_package(Qt6 REQUIRED COMPONENTS Widgets)      # the windows

if(DESIGNSPEC_TESTS)
    find_package(GTest REQUIRED)                   # tests
    include(GoogleTest)
endif()
if(DESIGNSPEC_BENCH)
    find_package(benchmark REQUIRED)               # benchmarks
    find_package(SQLite3 REQUIRED)                 # an alternative that the benchmarks measure
    pkg_check_modules(libxml2 REQUIRED IMPORTED_TARGET libxml-2.0) # likewise
endif()
