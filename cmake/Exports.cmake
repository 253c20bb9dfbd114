# exports(TARGET MAP) lets a library or module offer to others what the linker's version script MAP
# names, and nothing else. Libraries for Windows offer what their sources mark, or all they have.
function(exports TARGET MAP)
    if(WIN32)
        return()
    endif()
    set(MAP ${CMAKE_CURRENT_SOURCE_DIR}/${MAP})
    target_link_options(${TARGET} PRIVATE -Wl,--version-script=${MAP})
    set_target_properties(${TARGET} PROPERTIES LINK_DEPENDS ${MAP})
endfunction()
if(MINGW)
    # What a library takes from static ones stays its own.
    add_link_options(-Wl,--exclude-libs,ALL)
endif()
