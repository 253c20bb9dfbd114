# arx_module(NAME SOURCES file... [LIBRARIES lib...] [FOLDER dir]) makes the module NAME.arx, which
# stands beside the programs and is installed there; one in another folder is not installed.
function(arx_module NAME)
    cmake_parse_arguments(ARG "" "FOLDER" "SOURCES;LIBRARIES" ${ARGN})
    add_library(${NAME} MODULE ${ARG_SOURCES})
    set_target_properties(${NAME} PROPERTIES PREFIX "" SUFFIX ".arx")
    if(ARG_FOLDER)
        set_target_properties(${NAME} PROPERTIES LIBRARY_OUTPUT_DIRECTORY ${ARG_FOLDER})
    else()
        install(TARGETS ${NAME} LIBRARY DESTINATION ${CMAKE_INSTALL_BINDIR})
    endif()
    # A unique symbol would keep the module in memory after it was unloaded.
    target_compile_options(${NAME} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
    target_link_options(${NAME} PRIVATE -Wl,--no-undefined)
    target_link_libraries(${NAME} PRIVATE designspec_options roadplatform ${ARG_LIBRARIES})
endfunction()
