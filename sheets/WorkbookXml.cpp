#include "sheets/WorkbookXml.h"

#include <algorithm>
#include <cstdio>

#include "base/Number.h"
#include "base/Text.h"

namespace designspec {

std::string_view LocalName(const char* name)
{
    const std::string_view whole = name;
    const std::size_t colon = whole.find(':');
    return colon == std::string_view::npos ? whole : whole.substr(colon + 1);
}

bool Is(const pugi::xml_node& node, std::string_view name)
{
    return LocalName(node.name()) == name;
}

pugi::xml_node Child(const pugi::xml_node& node, std::string_view name)
{
    return node.find_child([&](const pugi::xml_node& one) { return Is(one, name); });
}

std::string_view Attribute(const pugi::xml_node& node, std::string_view name)
{
    return node
        .find_attribute(
            [&](const pugi::xml_attribute& one) { return LocalName(one.name()) == name; })
        .value();
}

int Number(const pugi::xml_node& node, std::string_view name, int missing, int most)
{
    int number = missing;
    if (!ParseInt(Attribute(node, name), number)) return missing;
    return std::clamp(number, 0, most);
}

CString NumberText(std::string_view number, bool isPercent)
{
    double value = 0;
    if (!ParseDouble(number, value)) return Trim(ToWide(number));
    char text[32];
    std::snprintf(text, sizeof text, "%.15g", isPercent ? value * 100 : value);
    ParseDouble(text, value);
    return ToWide(DoubleToText(value)) + (isPercent ? L"%" : L"");
}

CString BoolText(bool value)
{
    return value ? L"是" : L"否";
}

} // namespace designspec
