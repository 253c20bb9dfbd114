// Text on pages of HTML.
#pragma once

#include <string>
#include <string_view>

namespace designspec {

// As text of a page or within quotes there, wherever it comes from; what acts on a line is shown
// instead.
std::wstring HtmlText(std::wstring_view text);

} // namespace designspec
