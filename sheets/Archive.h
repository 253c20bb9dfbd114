// The parts of a workbook file, which is a zip archive of XML documents.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace designspec {

struct ArchivePart {
    std::string name;
    std::string bytes;
};

// The parts whose names are `wanted`; nothing when the bytes are no archive, a part cannot be read
// whole, or all of them take more than `limit` bytes.
std::optional<std::vector<ArchivePart>> ReadArchive(std::string_view bytes, std::size_t limit,
                                                    bool (*wanted)(std::string_view name));

} // namespace designspec
