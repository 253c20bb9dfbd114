#include "cli/Language.h"

#include <cstdlib>
#include <string_view>

namespace {

std::string_view LocaleOfMessages()
{
    for (const char* const variable : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (const char* const value = std::getenv(variable); value && *value) return value;
    return {};
}

} // namespace

Language HelpLanguage()
{
    std::string_view locale = LocaleOfMessages();
    locale = locale.substr(0, locale.find_first_of("_.@"));
    const bool open = locale.empty() || locale == "C" || locale == "POSIX";
    return open || locale == "zh" ? Language::Chinese : Language::English;
}
