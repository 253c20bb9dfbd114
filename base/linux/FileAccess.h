// Who may do what with a file: its owner and group, permissions, access control list and extended
// attributes.
#pragma once

#include <string>

namespace designspec {

// Gives the open file `fd` what the file at `path` has, as far as the system lets the caller. Where
// owner or group cannot be given, an entry of the access control list gives the former ones what
// they could do before, and nobody gains anything. 0, or an error number; also 0 when there is no
// ordinary file at `path`: then `fd` stays as it is.
int GiveAccessOf(const std::string& path, int fd);

} // namespace designspec
