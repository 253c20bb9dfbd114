// What a class or function carries that other modules may call.
#pragma once

#define AFX_EXT_CLASS __attribute__((visibility("default")))
#define AFX_EXT_API __attribute__((visibility("default")))
// What only the members of such a class call.
#define AFX_EXT_PRIVATE __attribute__((visibility("hidden")))
