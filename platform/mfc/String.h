// Wide text and its arrays, as the module names them. What std::wstring lacks stands in
// base/Text.h.
#pragma once

#include <string>
#include <vector>

using CString = std::wstring;
using CStringArray = std::vector<CString>;
template <class T> using CArray = std::vector<T>;
