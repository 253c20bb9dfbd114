# What `cmake --install` puts where, and the package that find_package(designspec) finds.
include(CMakePackageConfigHelpers)

set(DESIGNSPEC_PACKAGE ${CMAKE_INSTALL_LIBDIR}/cmake/designspec)

install(TARGETS designspec designspec_c roadcheck EXPORT designspecTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})

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
install(SCRIPT ${CMAKE_BINARY_DIR}/InstallHeaders.cmake)

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

install(TARGETS designspec_cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS designspec_full RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/designspec)
install(FILES cli/designspec.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES cli/designspec.zh_CN.1
    DESTINATION ${CMAKE_INSTALL_MANDIR}/zh_CN/man1 RENAME designspec.1)
install(FILES cli/designspec.bash-completion
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    RENAME designspec)

install(FILES docs/designspec.xsd docs/file-format.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
