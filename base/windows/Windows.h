// The operating system's own interface. Its macros for names that are functions of the module are
// taken back. Sources that include this include nothing of the module that has such a function.
#pragma once

#define WIN32_LEAN_AND_MEAN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
