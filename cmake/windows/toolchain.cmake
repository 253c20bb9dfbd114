# Builds for Windows with Debian's MinGW-w64 and runs what was built under Wine. LIBRARIES in the
# environment is the folder that the libraries for Windows are installed in; ./windows makes both.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/wine)

# Nothing of the machine that builds, but its programs.
if(DEFINED ENV{DESIGNSPEC_WINDOWS_LIBRARIES})
    set(LIBRARIES $ENV{DESIGNSPEC_WINDOWS_LIBRARIES})
    set(ENV{PKG_CONFIG_LIBDIR} ${LIBRARIES}/lib/pkgconfig)
endif()
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${LIBRARIES})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
