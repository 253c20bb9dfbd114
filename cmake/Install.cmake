# What `cmake --install` puts where, and the package that find_package(designspec) finds.
include(CMakePackageConfigHelpers)

set(DESIGNSPEC_HEADERS ${CMAKE_INSTALL_INCLUDEDIR}/designspec)
set(DESIGNSPEC_PACKAGE ${CMAKE_INSTALL_LIBDIR}/cmake/designspec)

install(TARGETS designspec EXPORT designspecTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})

# Of the platform, the headers of the sources that stand in the library: its other half has a GUI.
install(DIRECTORY model library DESTINATION ${DESIGNSPEC_HEADERS}
    FILES_MATCHING PATTERN "*.h"
    PATTERN FindingList.h EXCLUDE)
get_target_property(PLATFORM_SOURCES platform_core SOURCES)
foreach(SOURCE mfc/Export.cpp mfc/String.cpp ${PLATFORM_SOURCES})
    cmake_path(REPLACE_EXTENSION SOURCE h OUTPUT_VARIABLE HEADER)
    cmake_path(GET HEADER PARENT_PATH FOLDER)
    install(FILES platform/${HEADER} DESTINATION ${DESIGNSPEC_HEADERS}/platform/${FOLDER})
endforeach()

install(FILES base/NoCase.h DESTINATION ${DESIGNSPEC_HEADERS}/base)

install(EXPORT designspecTargets NAMESPACE designspec:: DESTINATION ${DESIGNSPEC_PACKAGE})
configure_package_config_file(cmake/designspecConfig.cmake.in
    ${CMAKE_BINARY_DIR}/designspecConfig.cmake
    INSTALL_DESTINATION ${DESIGNSPEC_PACKAGE})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/designspecConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES
    ${CMAKE_BINARY_DIR}/designspecConfig.cmake
    ${CMAKE_BINARY_DIR}/designspecConfigVersion.cmake
    DESTINATION ${DESIGNSPEC_PACKAGE})

install(TARGETS designspec_cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES cli/designspec.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES cli/designspec.bash-completion
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    RENAME designspec)

install(FILES docs/designspec.xsd docs/file-format.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
