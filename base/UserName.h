// Who works with this program.
#pragma once

#include <string>

namespace designspec {

// The login name, as the system knows it, else as the environment says (LOGNAME, USER); where
// there is none, the number of the user. Never empty.
std::wstring UserName();

} // namespace designspec
