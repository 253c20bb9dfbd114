#include "platform/vmrd/VMRDEnv/KnownFiles.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <functional>
#include <iterator>
#include <utility>

namespace designspec {

namespace {

// Tells contents apart. Four sums side by side: each step of one alone waits for the one before.
std::uint64_t Fingerprint(std::string_view bytes)
{
    constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15;
    std::uint64_t sums[4] = {1, 2, 3, 4};
    std::uint64_t words[4];
    for (; bytes.size() >= sizeof words; bytes.remove_prefix(sizeof words)) {
        std::memcpy(words, bytes.data(), sizeof words);
        for (size_t i = 0; i < std::size(sums); ++i)
            sums[i] = std::rotl((sums[i] ^ words[i]) * kFactor, 31);
    }
    std::uint64_t sum = std::hash<std::string_view>()(bytes);
    for (const std::uint64_t one : sums)
        sum = std::rotl((sum ^ one) * kFactor, 31);
    return sum;
}

} // namespace

KnownFiles::Content::Content(std::string_view bytes, std::vector<GUID> itsIds)
    : size(bytes.size()), fingerprint(Fingerprint(bytes)), ids(std::move(itsIds))
{
}

bool KnownFiles::Content::IsOf(std::string_view bytes) const
{
    return size == bytes.size() && fingerprint == Fingerprint(bytes);
}

const KnownFiles::Content* KnownFiles::ContentOf(const CString& file) const
{
    const auto found = m_files.find(file);
    return found != m_files.end() && found->second ? &*found->second : nullptr;
}

bool KnownFiles::IsGone(const CString& file) const
{
    return Has(file) && !ContentOf(file);
}

bool KnownFiles::Held(const CString& file, std::string_view bytes) const
{
    const Content* const content = ContentOf(file);
    return content && content->IsOf(bytes);
}

bool KnownFiles::Held(const CString& file, const GUID& id) const
{
    const Content* const content = ContentOf(file);
    return content && std::find(content->ids.begin(), content->ids.end(), id) != content->ids.end();
}

CStringArray KnownFiles::Names() const
{
    CStringArray names;
    for (const auto& [name, content] : m_files)
        if (content) names.push_back(name);
    return names;
}

} // namespace designspec
