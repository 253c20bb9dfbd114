#include "base/File.h"

#include <algorithm>
#include <chrono>

#include "base/FileSystem.h"
#include "base/Format.h"
#include "base/NoCase.h"
#include "base/TemporaryName.h"
#include "base/Text.h"

namespace designspec {

namespace {

using FileSystem::Error;
using FileSystem::Input;
using FileSystem::kInvalidName;

constexpr size_t kLongestName = 255;               // bytes
constexpr auto kLeftTime = std::chrono::hours(24); // no write takes that long

bool Fail(const std::wstring& path, const std::wstring& what, Problems& problems)
{
    AddProblem(problems, Severity::Error, path, 0, what);
    return false;
}

bool Fail(const std::wstring& path, const wchar_t* what, Error error, Problems& problems)
{
    return Fail(path, Format(L"%s: %s", what, FileSystem::TextOf(error)), problems);
}

// An empty path is none. For the operating system a path ends at its first NUL: it would reach
// another file.
bool IsNoPath(const std::wstring& path)
{
    return path.empty() || path.find(L'\0') != std::wstring::npos;
}

bool FlushFolderOf(const std::wstring& path, const wchar_t* what, Problems& problems)
{
    const Error error = FileSystem::FlushFolder(FileSystem::FolderOf(path));
    return error == 0 || Fail(path, what, error, problems);
}

} // namespace

std::string NativePath(const std::wstring& path)
{
    std::string native = ToUtf8(path);
    std::replace(native.begin(), native.end(), '\\', '/');
    return native;
}

bool IsFileName(std::wstring_view name)
{
    return !name.empty() && name != L"." && name != L".." &&
           name.find_first_of(std::wstring_view(L"/\\\0", 3)) == std::wstring_view::npos &&
           std::all_of(name.begin(), name.end(), FileSystem::IsNameCharacter) &&
           ToUtf8(name).size() <= kLongestName;
}

std::optional<bool> PathFileExists(const std::wstring& path, Problems& problems)
{
    if (IsNoPath(path)) return false;
    const Error error = FileSystem::Look(path);
    if (error == 0) return true;
    if (FileSystem::IsMissing(error)) return false;
    Fail(path, L"无法查看", error, problems);
    return std::nullopt;
}

bool PathFileExists(const std::wstring& path)
{
    Problems unseen;
    return PathFileExists(path, unseen).value_or(false);
}

bool IsFolder(const std::wstring& path)
{
    return !IsNoPath(path) && FileSystem::IsFolder(path);
}

bool IsSameContent(const std::wstring& a, const std::wstring& b)
{
    Problems unread;
    std::string bytes;
    std::string others;
    return ReadWholeFile(a, bytes, unread) && ReadWholeFile(b, others, unread) && bytes == others;
}

std::optional<bool> IsSameFile(const std::wstring& a, const std::wstring& b, Problems& problems)
{
    FileSystem::Identity first;
    FileSystem::Identity second;
    for (const auto& [path, identity] : {std::pair(&a, &first), std::pair(&b, &second)}) {
        if (IsNoPath(*path)) return false;
        const Error error = FileSystem::Identify(*path, *identity);
        if (error == 0) continue;
        if (FileSystem::IsMissing(error)) return false;
        Fail(*path, L"无法查看", error, problems);
        return std::nullopt;
    }
    return first == second;
}

std::vector<std::wstring> FindFiles(const std::wstring& folder, std::wstring_view ending,
                                    Problems& problems,
                                    const std::function<bool(const std::wstring&)>& wanted)
{
    std::vector<std::wstring> names;
    if (!PathFileExists(folder, problems).value_or(false)) return names;
    const Error error = FileSystem::List(folder, [&](const std::wstring& name) {
        if (!EndsInNoCase(name, ending)) return;
        if (name.find(L'\\') != std::wstring::npos)
            Fail(folder, Format(L"文件名“%s”含有反斜线,无法使用", name), problems);
        else if (!wanted || wanted(name))
            names.push_back(name);
    });
    if (error != 0) {
        names.clear(); // a part could be taken for all there is
        Fail(folder, L"文件夹无法读取", error, problems);
    }
    std::sort(names.begin(), names.end(), [](const std::wstring& a, const std::wstring& b) {
        const int order = CompareNoCase(a, b);
        return order != 0 ? order < 0 : a < b;
    });
    return names;
}

size_t LargestWholeFile()
{
    static const size_t largest = FileSystem::Memory() / 8;
    return largest;
}

bool ReadWholeFile(const std::wstring& path, std::string& bytes, Problems& problems)
{
    return ReadWholeFile(path, bytes, LargestWholeFile(), problems);
}

bool ReadWholeFile(const std::wstring& path, std::string& bytes, size_t limit, Problems& problems)
{
    static constexpr wchar_t kWhat[] = L"无法读取";
    if (IsNoPath(path)) return Fail(path, kWhat, kInvalidName, problems);
    Input file;
    if (const Error error = file.Open(path)) return Fail(path, kWhat, error, problems);
    if (file.What() == Input::Kind::Folder)
        return Fail(path, kWhat, FileSystem::kIsFolder, problems);
    if (file.What() != Input::Kind::File) return Fail(path, L"无法读取: 不是普通文件", problems);
    if (file.Size() > limit)
        return Fail(path, Format(L"无法读取: 文件大于 %d MiB", limit >> 20), problems);
    bytes.resize(static_cast<size_t>(file.Size()));
    size_t size = 0;
    while (size < bytes.size()) {
        size_t got = 0;
        const Error error = file.Read(bytes.data() + size, bytes.size() - size, got);
        if (error != 0) return Fail(path, kWhat, error, problems);
        if (got == 0) break; // it has become shorter since
        size += got;
    }
    bytes.resize(size);
    return true;
}

bool WriteWholeFile(const std::wstring& path, std::string_view bytes, Problems& problems,
                    const std::wstring& like)
{
    static constexpr wchar_t kWhat[] = L"无法写入";
    if (IsNoPath(path)) return Fail(path, kWhat, kInvalidName, problems);
    const std::wstring temporary = FileSystem::FolderOf(path) + L'/' + TemporaryName();

    Error error = FileSystem::WriteNew(temporary, path, like, bytes);
    if (error == FileSystem::kReadOnly) return Fail(path, L"无法写入: 文件是只读的", problems);
    if (error == 0) error = FileSystem::PutInPlace(temporary, path);
    if (error != 0) {
        FileSystem::Remove(temporary);
        return Fail(path, kWhat, error, problems);
    }
    return FlushFolderOf(path, kWhat, problems);
}

bool FlushFolder(const std::wstring& folder, Problems& problems)
{
    const Error error = FileSystem::FlushFolder(folder);
    return error == 0 || Fail(folder, L"无法写入", error, problems);
}

bool IsTemporaryFile(std::wstring_view name)
{
    return IsTemporaryName(name);
}

void DeleteLeftTemporaries(const std::wstring& folder)
{
    Problems unseen; // they do no harm
    for (const std::wstring& name : FindFiles(folder, L".tmp", unseen)) {
        if (!IsTemporaryName(name) || IsBeingWritten(name)) continue;
        const std::wstring path = folder + L'/' + name;
        const auto age = FileSystem::Age(path);
        if (age && *age > kLeftTime) FileSystem::Remove(path);
    }
}

bool CopyFile(const std::wstring& source, const std::wstring& target, Problems& problems)
{
    std::string bytes;
    return ReadWholeFile(source, bytes, problems) &&
           WriteWholeFile(target, bytes, problems, source);
}

bool MoveFile(const std::wstring& source, const std::wstring& target, Problems& problems)
{
    static constexpr wchar_t kWhat[] = L"无法移动";
    if (IsNoPath(source) || IsNoPath(target)) return Fail(source, kWhat, kInvalidName, problems);
    if (const Error error = FileSystem::Move(source, target))
        return Fail(source, kWhat, error, problems);
    return FlushFolderOf(target, kWhat, problems) && FlushFolderOf(source, kWhat, problems);
}

bool LinkFile(const std::wstring& source, const std::wstring& target)
{
    if (IsNoPath(source) || IsNoPath(target)) return false;
    if (FileSystem::Link(source, target) != 0) return false;
    if (FileSystem::FlushFolder(FileSystem::FolderOf(target)) == 0) return true;
    FileSystem::Remove(target);
    return false;
}

void DropFile(const std::wstring& path)
{
    if (!IsNoPath(path)) FileSystem::Remove(path);
}

bool DeleteFile(const std::wstring& path, Problems& problems)
{
    static constexpr wchar_t kWhat[] = L"无法删除";
    if (IsNoPath(path)) return Fail(path, kWhat, kInvalidName, problems);
    const Error error = FileSystem::Remove(path);
    if (error == 0) return FlushFolderOf(path, kWhat, problems);
    return FileSystem::IsMissing(error) ? false : Fail(path, kWhat, error, problems);
}

void RemoveEmptyFolder(const std::wstring& path)
{
    if (!IsNoPath(path)) FileSystem::RemoveFolder(path);
}

bool CreateFolder(const std::wstring& path, Problems& problems, const std::wstring& like)
{
    static constexpr wchar_t kWhat[] = L"文件夹无法创建";
    if (IsNoPath(path)) return Fail(path, kWhat, kInvalidName, problems);
    bool isNew = false;
    const Error error = FileSystem::MakeFolder(path, IsNoPath(like) ? std::wstring() : like, isNew);
    if (error != 0) return Fail(path, kWhat, error, problems);
    return !isNew || FlushFolder(path + L"/..", problems);
}

} // namespace designspec
