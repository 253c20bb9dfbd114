// Paths in UTF-8, whatever the code page of the system is.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

inline std::filesystem::path Utf8Path(std::string_view utf8)
{
    return std::u8string(utf8.begin(), utf8.end());
}

// With "/" between the names.
inline std::string Utf8(const std::filesystem::path& path)
{
    const std::u8string utf8 = path.generic_u8string();
    return {utf8.begin(), utf8.end()};
}
