#include "sheets/Archive.h"

#include <memory>

#include <zip.h>

namespace designspec {

namespace {

constexpr zip_int64_t kMostEntries = 10000; // of any kind

using Zip = std::unique_ptr<zip_t, decltype(&zip_discard)>;
using ZipFile = std::unique_ptr<zip_file_t, decltype(&zip_fclose)>;
using ZipSource = std::unique_ptr<zip_source_t, decltype(&zip_source_free)>;

// The archive takes the source over when it can be opened.
Zip Open(ZipSource& source, int flags)
{
    Zip zip(source ? zip_open_from_source(source.get(), flags, nullptr) : nullptr, zip_discard);
    if (zip) (void)source.release();
    return zip;
}

// False when the part is not whole or longer than `limit`.
bool ReadPart(zip_t* zip, zip_uint64_t index, std::size_t limit, std::string& bytes)
{
    const ZipFile file(zip_fopen_index(zip, index, 0), zip_fclose);
    if (!file) return false;
    char part[16 * 1024];
    zip_int64_t size = 0;
    while ((size = zip_fread(file.get(), part, sizeof part)) > 0) {
        bytes.append(part, static_cast<std::size_t>(size));
        if (bytes.size() > limit) return false;
    }
    return size == 0;
}

} // namespace

std::optional<std::vector<ArchivePart>> ReadArchive(std::string_view bytes, std::size_t limit,
                                                    bool (*wanted)(std::string_view name))
{
    ZipSource source(zip_source_buffer_create(bytes.data(), bytes.size(), 0, nullptr),
                     zip_source_free);
    const Zip zip = Open(source, ZIP_RDONLY);
    if (!zip) return {};
    const zip_int64_t count = zip_get_num_entries(zip.get(), 0);
    if (count > kMostEntries) return {};
    std::vector<ArchivePart> parts;
    for (zip_int64_t i = 0; i < count; ++i) {
        const auto index = static_cast<zip_uint64_t>(i);
        const char* const name = zip_get_name(zip.get(), index, 0);
        if (!name || !wanted(name)) continue;
        ArchivePart& part = parts.emplace_back();
        part.name = name;
        if (!ReadPart(zip.get(), index, limit, part.bytes)) return {};
        limit -= part.bytes.size();
    }
    return parts;
}

} // namespace designspec
