# host_library(NAME) installs what the host loads or links from the host's own folder, where it finds
# its neighbours and, below that folder, the libraries of all.
function(host_library NAME)
    install(TARGETS ${NAME} LIBRARY DESTINATION ${ROADHOST_FOLDER} NAMELINK_SKIP)
    set_property(TARGET ${NAME} PROPERTY INSTALL_RPATH $ORIGIN)
    if(CMAKE_INSTALL_RPATH)
        set_property(TARGET ${NAME} APPEND PROPERTY INSTALL_RPATH $ORIGIN/..)
    endif()
endfunction()

# arx_module(NAME SOURCES file... [LIBRARIES lib...] [FOLDER dir]) makes the module NAME.arx, which
# stands beside the programs and is installed where the host looks; one in another folder is not
# installed.
function(arx_module NAME)
    cmake_parse_arguments(ARG "" "FOLDER" "SOURCES;LIBRARIES" ${ARGN})
    add_library(${NAME} MODULE ${ARG_SOURCES})
    set_target_properties(${NAME} PROPERTIES PREFIX "" SUFFIX ".arx")
    if(ARG_FOLDER)
        set_target_properties(${NAME} PROPERTIES LIBRARY_OUTPUT_DIRECTORY ${ARG_FOLDER})
    else()
        host_library(${NAME})
    endif()
    # A unique symbol would keep the module in memory after it was unloaded.
    target_compile_options(${NAME} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
    target_link_options(${NAME} PRIVATE -Wl,--no-undefined)
    target_link_libraries(${NAME} PRIVATE designspec_options roadplatform ${ARG_LIBRARIES})
endfunction()
