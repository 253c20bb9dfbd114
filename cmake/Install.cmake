# What `cmake --install` puts where, and the package that find_package(designspec) finds.
include(CMakePackageConfigHelpers)

set(DESIGNSPEC_PACKAGE ${CMAKE_INSTALL_LIBDIR}/cmake/designspec)

install(TARGETS designspec designspec_c roadcheck EXPORT designspecTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    COMPONENT libdesignspec${PROJECT_VERSION_MAJOR} NAMELINK_COMPONENT libdesignspec-dev)
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME libdesignspec-dev)

# The headers that other modules are promised, below designspec/ so that a program's own model/ or
# base/ stays its own. Their includes of one another say so too.
set(PUBLIC_HEADERS
    base/Export.h
    base/Moment.h
    base/NoCase.h
    base/Problem.h
    base/Signal.h
    library/DesignSpecifications.h
    library/LibraryCheck.h
    library/SpecificationFolder.h
    library/SpecificationHistory.h
    library/StyleName.h
    platform/mfc/Object.h
    platform/mfc/String.h
    platform/vmrd/VMRDEnv/DeletedStyles.h
    platform/vmrd/VMRDEnv/KnownFiles.h
    platform/vmrd/VMRDEnv/Style.h
    platform/vmrd/VMRDEnv/StyleFile.h
    platform/vmrd/VMRDEnv/StyleFolder.h
    platform/vmrd/VMRDEnv/StyleHistory.h
    platform/vmrd/VMRDEnv/Styles.h
    platform/vmrd/VMRDPub/VMRDPub.h
    platform/vmrd/VmHFCBaseU/Trace.h
    platform/windows/Guid.h
    platform/xtp/PropExchange.h
    platform/xtp/PropExchangeXMLNode.h)
file(GLOB MODEL_HEADERS RELATIVE ${CMAKE_SOURCE_DIR} CONFIGURE_DEPENDS model/*.h)
list(REMOVE_ITEM MODEL_HEADERS model/FindingList.h) # what the findings share among them
list(APPEND PUBLIC_HEADERS ${MODEL_HEADERS}
    roads/Alignment.h
    roads/CheckOptions.h
    roads/Diagram.h
    roads/HtmlReport.h
    roads/ReportFile.h
    roads/RoadCheck.h
    roads/RoadFileReading.h
    roads/RoadJson.h
    roads/RoadReport.h
    roads/RoadVerification.h
    roads/Rules.h
    roads/Stationing.h)
list(JOIN PUBLIC_HEADERS " " PUBLIC_HEADER_LIST)
configure_file(cmake/InstallHeaders.cmake.in ${CMAKE_BINARY_DIR}/InstallHeaders.cmake @ONLY)
install(SCRIPT ${CMAKE_BINARY_DIR}/InstallHeaders.cmake COMPONENT libdesignspec-dev)

# For programs in C.
install(FILES c/designspec.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
file(RELATIVE_PATH UP /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
set(PC_INCLUDE "\${pcfiledir}/${UP}${CMAKE_INSTALL_INCLUDEDIR}")
configure_file(cmake/designspec-c.pc.in ${CMAKE_BINARY_DIR}/designspec-c.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/designspec-c.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

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

set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME designspec)
install(TARGETS designspec_cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES cli/designspec.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES cli/designspec.zh_CN.1
    DESTINATION ${CMAKE_INSTALL_MANDIR}/zh_CN/man1 RENAME designspec.1)
install(FILES cli/designspec.bash-completion
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    RENAME designspec)

install(FILES docs/designspec.xsd docs/file-format.md DESTINATION ${CMAKE_INSTALL_DOCDIR})

# Elsewhere pip installs it: docs/python.md.
if(DESIGNSPEC_PYTHON)
    set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME python3-designspec)
    set(PYTHON_FOLDER lib/python3/dist-packages)
    install(TARGETS designspec_python
        LIBRARY DESTINATION ${PYTHON_FOLDER}/designspec EXCLUDE_FROM_ALL)
    install(FILES ${PYTHON_SOURCES} DESTINATION ${PYTHON_FOLDER}/designspec EXCLUDE_FROM_ALL)
    configure_file(python/METADATA.in ${CMAKE_BINARY_DIR}/METADATA @ONLY)
    install(FILES ${CMAKE_BINARY_DIR}/METADATA
        DESTINATION ${PYTHON_FOLDER}/designspec-${PROJECT_VERSION}.dist-info EXCLUDE_FROM_ALL)
endif()
