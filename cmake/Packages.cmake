# What `cpack` makes: Debian packages, one of each component that is installed. docs/packages.md tells
# what is in them.
set(CPACK_GENERATOR DEB)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_NAME designspec)
set(CPACK_PACKAGE_VENDOR designspec)
set(CPACK_PACKAGE_CONTACT "designspec maintainers <maintainers@designspec.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SOURCE designspec)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# Dependencies are those of the programs, on one another as well: shlibs.local (see below).
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})

set(DEBIAN ${CMAKE_SOURCE_DIR}/cmake/debian)
set(DEBIAN_MADE ${CMAKE_BINARY_DIR}/debian)
set(DEBIAN_VERSION ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})

# debian_package(NAME SECTION section SUMMARY text DESCRIPTION text [DEPENDS text] [RECOMMENDS text]
# [SUGGESTS text] [CONTROL file...])
set(CPACK_COMPONENTS_ALL)
macro(debian_package NAME)
    cmake_parse_arguments(ARG "" "SECTION;SUMMARY;DESCRIPTION;DEPENDS;RECOMMENDS;SUGGESTS"
        "CONTROL" ${ARGN})
    list(APPEND CPACK_COMPONENTS_ALL ${NAME})
    string(TOUPPER CPACK_DEBIAN_${NAME} THIS)
    set(${THIS}_PACKAGE_NAME ${NAME})
    set(${THIS}_PACKAGE_SECTION ${ARG_SECTION})
    set(${THIS}_DESCRIPTION "${ARG_SUMMARY}\n${ARG_DESCRIPTION}")
    set(${THIS}_PACKAGE_DEPENDS "${ARG_DEPENDS}")
    set(${THIS}_PACKAGE_RECOMMENDS "${ARG_RECOMMENDS}")
    set(${THIS}_PACKAGE_SUGGESTS "${ARG_SUGGESTS}")
    set(${THIS}_PACKAGE_CONTROL_EXTRA "${ARG_CONTROL}")
endmacro()

# Programs of others need the library's interface, our own packages are of one build.
function(write_shlibs FILE RELATION)
    set(TEXT)
    foreach(library designspec designspec-c roadcheck)
        string(APPEND TEXT "lib${library} ${PROJECT_VERSION_MAJOR} "
            "libdesignspec${PROJECT_VERSION_MAJOR} (${RELATION} ${DEBIAN_VERSION})\n")
    endforeach()
    file(WRITE ${FILE} "${TEXT}")
endfunction()
write_shlibs(${DEBIAN_MADE}/shlibs ">=")
write_shlibs(${DEBIAN_MADE}/shlibs.local "=")

# Their lines are no longer than Debian's tools like.
set(ABOUT "Limits that roads are designed by - radii, grade lengths, superelevation,
widening - kept as named specifications in the files of a project, by design
speed.")

debian_package(libdesignspec1
    SECTION libs
    SUMMARY "design specifications of roads - libraries"
    DESCRIPTION "${ABOUT}

This package has the libraries for specifications, for checking roads against
them, and for programs in C."
    CONTROL ${DEBIAN_MADE}/shlibs ${DEBIAN}/triggers)

debian_package(libdesignspec-dev
    SECTION libdevel
    SUMMARY "design specifications of roads - headers"
    DESCRIPTION "${ABOUT}

This package has what programs in C++ and C are built with: headers, and files
for CMake and pkg-config."
    DEPENDS "libdesignspec1 (= ${DEBIAN_VERSION})")

debian_package(designspec
    SECTION science
    SUMMARY "design specifications of roads - command"
    DESCRIPTION "${ABOUT}

This package has the command that lists, queries, changes and compares
specifications, reads and writes them as spreadsheets, and checks road files."
    SUGGESTS roadhost)

if(DESIGNSPEC_GUI)
    debian_package(roadhost
        SECTION science
        SUMMARY "design specifications of roads - desktop"
        DESCRIPTION "${ABOUT}

This package has the program in which specifications are edited in tables,
compared and printed, and roads checked in a window. Its windows are in
Chinese."
        RECOMMENDS "fonts-noto-cjk | fonts-wqy-microhei, qt6-translations-l10n"
        SUGGESTS "designspec, qt6-wayland")
endif()

if(DESIGNSPEC_PYTHON)
    set(PYTHON ${Python_VERSION_MAJOR}.${Python_VERSION_MINOR})
    math(EXPR NEXT "${Python_VERSION_MINOR} + 1")
    debian_package(python3-designspec
        SECTION python
        SUMMARY "design specifications of roads - Python 3"
        DESCRIPTION "${ABOUT}

This package has a module for Python 3 with queries for arrays of speeds,
differences, and roads checked against specifications."
        DEPENDS "python3 (>= ${PYTHON}), python3 (<< ${Python_VERSION_MAJOR}.${NEXT}), python3-numpy"
        SUGGESTS python3-pandas
        CONTROL ${DEBIAN}/postinst ${DEBIAN}/prerm)
endif()

# What is the same in each package, and what Debian wants to be done to files.
configure_file(${DEBIAN}/changelog.in ${DEBIAN_MADE}/changelog.Debian @ONLY)
configure_file(${DEBIAN}/FinishPackages.cmake.in ${DEBIAN_MADE}/FinishPackages.cmake @ONLY)
set(CPACK_PRE_BUILD_SCRIPTS ${DEBIAN_MADE}/FinishPackages.cmake)

include(CPack)
