# The compiler's own libraries, which each program needs: beside the programs, here and installed.
foreach(NAME libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${NAME}
        OUTPUT_VARIABLE FILE OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    configure_file(${FILE} ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${NAME} COPYONLY)
    install(FILES ${FILE} DESTINATION ${CMAKE_INSTALL_BINDIR})
endforeach()
