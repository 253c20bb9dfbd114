// The operating system's own interface, without its macros for names that are functions of the
// module: each of its functions is called by the name that ends in W.
#pragma once

#define WIN32_LEAN_AND_MEAN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#undef CopyFile
#undef DeleteFile
#undef GetPrivateProfileString
#undef MoveFile
#undef WritePrivateProfileString
