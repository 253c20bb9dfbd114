#include "platform/vmrd/VMRDEnv/StyleHistory.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <tuple>

#include "base/CodePoint.h"
#include "base/File.h"
#include "base/Format.h"
#include "base/Text.h"
#include "base/UserName.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

namespace designspec {

namespace {

constexpr size_t kNumberDigits = 6; // with zeros before it
constexpr size_t kMostDigits = 9;   // a name with more is none of ours
constexpr size_t kHashDigits = 16;
constexpr size_t kLongestUser = 40; // characters in a name

// What no name of a file may hold somewhere becomes %XX.
CString Escaped(const CString& user)
{
    static constexpr std::wstring_view kNever = L"%/\\:*?\"<>|";
    CString escaped;
    const size_t end = std::min(user.size(), kLongestUser);
    for (const wchar_t c : user.substr(0, IsWithinPair<wchar_t>(user, end) ? end - 1 : end)) {
        if (c < L' ' || c == 0x7F || kNever.find(c) != std::wstring_view::npos)
            escaped += Format(L"%%%02X", static_cast<int>(c));
        else
            escaped += c;
    }
    return escaped;
}

template <class Number> std::optional<Number> ReadNumber(const CString& text, int base)
{
    const std::string digits = ToUtf8(text);
    Number number = 0;
    const char* const end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, number, base);
    return read.ec == std::errc() && read.ptr == end ? std::optional(number) : std::nullopt;
}

CString Unescaped(const CString& text)
{
    CString user;
    for (size_t i = 0; i < text.size(); ++i) {
        const bool isCode = text[i] == L'%' && i + 2 < text.size();
        const auto code = isCode ? ReadNumber<unsigned>(text.substr(i + 1, 2), 16) : std::nullopt;
        user += code ? static_cast<wchar_t>(*code) : text[i];
        if (code) i += 2;
    }
    return user;
}

CString FileNameOf(const StyleVersion& version)
{
    return Format(L"%06d-%s-%016x-%016x-%s%s", version.number, CompactUtc(version.replaced),
                  version.content, version.next, Escaped(version.user), CString(kStyleFileEnding));
}

// What the name of a file tells; nothing when it is none of ours.
std::optional<StyleVersion> ReadName(const CString& file)
{
    constexpr size_t kFields = 4; // before the user, who may have hyphens
    CString fields[kFields];
    size_t at = 0;
    for (CString& field : fields) {
        const size_t end = file.find(L'-', at);
        if (end == CString::npos) return std::nullopt;
        field = file.substr(at, end - at);
        at = end + 1;
    }
    const size_t end = file.size() - std::size(kStyleFileEnding) + 1;
    const auto replaced = ParseCompactUtc(fields[1]);
    const bool isSized = fields[0].size() >= kNumberDigits && fields[0].size() < kMostDigits &&
                         fields[2].size() == kHashDigits && fields[3].size() == kHashDigits;
    const auto number = ReadNumber<int>(fields[0], 10);
    const auto content = ReadNumber<std::uint64_t>(fields[2], 16);
    const auto next = ReadNumber<std::uint64_t>(fields[3], 16);
    if (at > end || !replaced || !isSized || !number || *number < 1 || !content || !next)
        return std::nullopt;
    return StyleVersion{*number,  *replaced, Unescaped(file.substr(at, end - at)),
                        *content, *next,     file};
}

} // namespace

// FNV-1a: the same on every machine, as it goes into names of files.
std::uint64_t StyleHistory::HashOf(std::string_view bytes)
{
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char byte : bytes)
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3;
    return hash;
}

CString StyleHistory::FolderOf(const GUID& id) const
{
    return m_path.empty() ? CString() : m_path + L'\\' + VMRDPub::GUIDToStr(id);
}

CString StyleHistory::PathOf(const GUID& id, const StyleVersion& version) const
{
    return FolderOf(id) + L'\\' + version.file;
}

std::vector<StyleVersion> StyleHistory::Versions(const GUID& id, Problems& problems) const
{
    std::vector<StyleVersion> versions;
    const CString folder = FolderOf(id);
    for (const CString& file : FindFiles(folder, kStyleFileEnding, problems)) {
        if (auto version = ReadName(file))
            versions.push_back(std::move(*version));
        else
            AddProblem(problems, Severity::Note, folder + L'\\' + file, 0,
                       L"不是历史版本的文件名,已略过");
    }
    std::stable_sort(versions.begin(), versions.end(),
                     [](const StyleVersion& a, const StyleVersion& b) {
                         return std::tie(a.number, a.replaced) < std::tie(b.number, b.replaced);
                     });
    return versions;
}

std::vector<GUID> StyleHistory::Identities(Problems& problems) const
{
    std::vector<GUID> ids;
    for (const CString& folder : FindFiles(m_path, L"", problems)) {
        GUID id;
        if (VMRDPub::ParseGUID(folder, id) && VMRDPub::GUIDToStr(id) == folder) ids.push_back(id);
    }
    return ids;
}

bool StyleHistory::Holds(const GUID& id, const StyleVersion& version, std::string_view bytes) const
{
    Problems unread;
    std::string its;
    return version.content == HashOf(bytes) && ReadWholeFile(PathOf(id, version), its, unread) &&
           its == bytes;
}

bool StyleHistory::Keep(const GUID& id, std::string_view bytes, std::string_view next,
                        const CString& like, Problems& problems) const
{
    if (bytes == next) return true;
    const CString above = m_path.substr(0, m_path.find_last_of(L"\\/"));
    if (!CreateFolder(m_path, problems, above) || !CreateFolder(FolderOf(id), problems, m_path))
        return false;
    DeleteLeftTemporaries(FolderOf(id));
    Problems unlisted;
    std::vector<StyleVersion> versions = Versions(id, unlisted);
    if (HasError(unlisted)) return Append(problems, std::move(unlisted)), false;

    StyleVersion kept{1, Now(), UserName(), HashOf(bytes), HashOf(next), {}};
    const bool isLast = !versions.empty() && Holds(id, versions.back(), bytes);
    if (!versions.empty()) kept.number = versions.back().number + (isLast ? 0 : 1);
    kept.file = FileNameOf(kept);
    if (isLast)
        return versions.back().file == kept.file ||
               MoveFile(PathOf(id, versions.back()), PathOf(id, kept), problems);
    if (!Put(id, kept, versions, bytes, like, problems)) return false;
    versions.push_back(kept);
    DropOld(id, versions);
    return true;
}

bool StyleHistory::Put(const GUID& id, const StyleVersion& version,
                       const std::vector<StyleVersion>& versions, std::string_view bytes,
                       const CString& like, Problems& problems) const
{
    const auto same = std::find_if(versions.rbegin(), versions.rend(),
                                   [&](const auto& one) { return Holds(id, one, bytes); });
    const CString path = PathOf(id, version);
    return (same != versions.rend() && LinkFile(PathOf(id, *same), path)) ||
           WriteWholeFile(path, bytes, problems, like);
}

// A clock that was set back makes no version old: none is taken to be older than the ones before
// it.
void StyleHistory::DropOld(const GUID& id, const std::vector<StyleVersion>& versions) const
{
    const Moment oldest = MonthsBefore(Now(), kMonths);
    Moment replaced = versions.front().replaced;
    for (size_t i = 0; i + 1 < versions.size(); ++i) {
        replaced = std::max(replaced, versions[i].replaced);
        if (versions.size() - i > kMostVersions || replaced < oldest)
            DropFile(PathOf(id, versions[i]));
    }
}

} // namespace designspec
