#include "cli/Language.h"

#include <algorithm>
#include <cstdlib>

#include "cli/Console.h"

namespace {

std::string LocaleOfMessages()
{
    for (const char* const variable : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (const char* const value = std::getenv(variable); value && *value) return value;
    return Console::Locale();
}

} // namespace

Language HelpLanguage()
{
    std::string locale = LocaleOfMessages();
    locale.resize(std::min(locale.find_first_of("-_.@"), locale.size()));
    const bool open = locale.empty() || locale == "C" || locale == "POSIX";
    return open || locale == "zh" ? Language::Chinese : Language::English;
}
