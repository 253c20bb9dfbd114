# arx_module(NAME SOURCES file... [LIBRARIES lib...] [FOLDER dir]) makes the module NAME.arx, beside
# the programs or in another folder.
function(arx_module NAME)
    cmake_parse_arguments(ARG "" "FOLDER" "SOURCES;LIBRARIES" ${ARGN})
    add_library(${NAME} MODULE ${ARG_SOURCES})
    set_target_properties(${NAME} PROPERTIES PREFIX "" SUFFIX ".arx")
    if(ARG_FOLDER)
        set_target_properties(${NAME} PROPERTIES LIBRARY_OUTPUT_DIRECTORY ${ARG_FOLDER})
    endif()
    # A unique symbol would keep the module in memory after it was unloaded.
    target_compile_options(${NAME} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
    target_link_options(${NAME} PRIVATE -Wl,--no-undefined)
    target_link_libraries(${NAME} PRIVATE designspec_options roadplatform ${ARG_LIBRARIES})
endfunction()
