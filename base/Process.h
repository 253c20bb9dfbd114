// This process and others, as the operating system tells of them; linux/ and windows/ have a source
// each.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace designspec::Process {

int Id();
// True also when it cannot be told.
bool IsRunning(int id);

// Of the program's file, without folder.
std::wstring ProgramName();
// Where the program's file is; empty when that cannot be told.
std::wstring ProgramFolder();
// Where relative paths begin, as a path of the module's own; "." when that is none.
std::wstring CurrentFolder();
std::wstring HostName();

// A new identity: 16 bytes in the order in which it is written (version 4 of RFC 4122).
std::array<std::uint8_t, 16> NewIdentity();

} // namespace designspec::Process
