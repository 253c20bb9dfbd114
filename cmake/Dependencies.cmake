# The libraries of the tree, each with its reason. The list of Debian packages is in packages.txt.
find_package(PkgConfig REQUIRED)

find_package(pugixml REQUIRED)                     # XML files: small, fast, no entities resolved
find_package(fmt REQUIRED)                         # printf-style formats for wide text
pkg_check_modules(utf8proc REQUIRED IMPORTED_TARGET libutf8proc) # UTF-8, case folding
if(NOT WIN32)
    pkg_check_modules(uuid REQUIRED IMPORTED_TARGET uuid) # new identities
endif()
find_package(CLI11 REQUIRED)                       # the command's options and help
find_package(nlohmann_json REQUIRED)               # --json output
# road files: reads them as a stream, in every encoding, without what is dangerous in XML
pkg_check_modules(libxml2 REQUIRED IMPORTED_TARGET libxml-2.0)
if(DESIGNSPEC_SHEETS)
    pkg_check_modules(xlsxwriter REQUIRED IMPORTED_TARGET xlsxwriter) # writes workbooks: small, BSD
    pkg_check_modules(orcus REQUIRED IMPORTED_TARGET liborcus-0.17) # reads .csv cell by cell
    pkg_check_modules(libzip REQUIRED IMPORTED_TARGET libzip) # the archives that workbooks are
endif()
if(DESIGNSPEC_GUI OR NOT WIN32)
    # how Chinese characters are said, for those who type the first letters; Qt brings it along anyway
    pkg_check_modules(icu REQUIRED IMPORTED_TARGET icu-i18n icu-uc)
endif()

if(DESIGNSPEC_GUI)
    find_package(Qt6 6.4 REQUIRED COMPONENTS
        Widgets                                    # windows, tables, dialogs, undo
        UiTools                                    # dialog resources are forms loaded at run time
        PrintSupport                               # printers, preview
        Svg)                                       # icons, sharp at every scale
    find_program(RSVG_CONVERT rsvg-convert REQUIRED) # the program's icon in the sizes of desktops
    find_package(qpdf REQUIRED)                    # links within PDF files, which Qt cannot write
endif()
if(DESIGNSPEC_PYTHON)
    # Debian's own, which finds Debian's NumPy and pandas.
    find_program(Python_EXECUTABLE python3 PATHS /usr/bin NO_DEFAULT_PATH)
    find_package(Python 3.11 REQUIRED COMPONENTS Interpreter Development.Module)
    find_package(pybind11 REQUIRED)                # the Python package over the core
endif()
if(DESIGNSPEC_TESTS)
    find_package(GTest REQUIRED)                   # tests
    include(GoogleTest)
    if(DESIGNSPEC_GUI)
        find_package(Qt6 6.4 REQUIRED COMPONENTS Test) # keys, mouse, model checks
    endif()
endif()
if(DESIGNSPEC_BENCH)
    find_package(benchmark REQUIRED)               # benchmarks
    find_package(SQLite3 REQUIRED)                 # an alternative that the benchmarks measure
endif()
