# One interface target carries the warnings and sanitizers of every target of the tree.
add_library(designspec_options INTERFACE)
target_compile_options(designspec_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Wconversion
    -Wsign-conversion -Woverloaded-virtual -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # g++ 12 takes an optimised std::string = "text" for an overlapping copy.
    target_compile_options(designspec_options INTERFACE -Wno-restrict)
endif()
if(WIN32)
    # Visibility is not known there: libraries offer all they have.
    target_compile_options(designspec_options INTERFACE -Wno-attributes)
endif()
target_include_directories(designspec_options INTERFACE ${CMAKE_SOURCE_DIR})

if(DESIGNSPEC_SANITIZE)
    target_compile_options(designspec_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(designspec_options INTERFACE -fsanitize=address,undefined)
endif()

if(DESIGNSPEC_FUZZ)
    target_compile_options(designspec_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()
