// What the operating system does with files; linux/ and windows/ have a source each. Paths are the
// module's own, not empty and without a NUL. What fails returns a number of the system's own, or
// kReadOnly; 0 is success.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace designspec::FileSystem {

using Error = int;
constexpr Error kReadOnly = -1; // nobody may write the file
extern const Error kInvalidName;
extern const Error kIsFolder;

// What it means, for a reader.
std::wstring TextOf(Error error);
// True when there is nothing at the path.
bool IsMissing(Error error);

// True for a path that a user of this system gives and that is one of the module's own as well.
bool IsPath(std::wstring_view path);
// True when the system lets a name hold that character.
bool IsNameCharacter(wchar_t c);
// The folder that what stands at the path is in.
std::wstring FolderOf(const std::wstring& path);

// Whether something is there; a link itself, not what it leads to.
Error Look(const std::wstring& path);

// What tells one file from every other, by whatever path it is reached.
struct Identity {
    std::uint64_t device = 0;
    std::uint64_t file = 0;
    bool operator==(const Identity&) const = default;
};
Error Identify(const std::wstring& path, Identity& identity);

// Whether a folder is there.
bool IsFolder(const std::wstring& path);
// Hands over the name of each entry, in no order, without "." and "..".
Error List(const std::wstring& folder, const std::function<void(const std::wstring&)>& take);
// How long ago the file was written; nothing when that cannot be told.
std::optional<std::chrono::seconds> Age(const std::wstring& path);
// Bytes of memory that the machine has.
size_t Memory();

// A file that is read from its beginning to its end.
class Input {
public:
    enum class Kind { File, Folder, Other };

    Input() = default;
    ~Input();
    Input(const Input&) = delete;
    Input& operator=(const Input&) = delete;

    // Never waits, whatever is there.
    Error Open(const std::wstring& path);
    Kind What() const { return m_kind; }
    std::uint64_t Size() const { return m_size; } // bytes, when it was opened
    // Up to so many bytes; 0 of them at the end.
    Error Read(char* buffer, size_t room, size_t& count);

private:
    std::intptr_t m_file = -1;
    Kind m_kind = Kind::Other;
    std::uint64_t m_size = 0;
};

// Writes a new file that is to come in place of `target`, and flushes it. Who may do what with it
// is as with `target`; where that is not there, as with the file at `like`, if one is, but it can
// be written.
Error WriteNew(const std::wstring& path, const std::wstring& target, const std::wstring& like,
               std::string_view bytes);
// Puts such a file in its place. After a failure `target` is as it was.
Error PutInPlace(const std::wstring& path, const std::wstring& target);
// Makes what happened to names in the folder last through a power failure, as far as the system
// can.
Error FlushFolder(const std::wstring& folder);

// A file that stands at `target` is replaced. A link leads where it led.
Error Move(const std::wstring& source, const std::wstring& target);
Error Link(const std::wstring& source, const std::wstring& target);
Error Remove(const std::wstring& path);
Error RemoveFolder(const std::wstring& path);
// Makes the folder and what is missing above it. A new one may be used by those who may use the
// folder at `like`, which may be empty.
Error MakeFolder(const std::wstring& path, const std::wstring& like, bool& isNew);

} // namespace designspec::FileSystem
