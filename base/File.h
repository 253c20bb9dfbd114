// Files and folders. Paths are the module's own: "/" and "\" both separate. Every function that
// fails adds a problem with the file and the cause, unless it says otherwise. An empty path and one
// with a NUL in it name nothing: they are refused, never taken for another.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include <vector>

#include "base/Problem.h"

namespace designspec {

// The path for the operating system: UTF-8, with "/" for both separators.
std::string NativePath(const std::wstring& path);

// True for the name of one thing in a folder, which a path can be made of without leaving that
// folder: no separator, no NUL, neither "." nor "..", not empty, at most 255 bytes.
bool IsFileName(std::wstring_view name);

// Whether something is there, whatever it is. Nothing when that cannot be told.
std::optional<bool> PathFileExists(const std::wstring& path, Problems& problems);
// The same for who only wants to know of what can be seen; no problem is added.
bool PathFileExists(const std::wstring& path);
// Whether a folder is there that can be seen.
bool IsFolder(const std::wstring& path);
// Whether both paths lead to one and the same file. Nothing when that cannot be told.
std::optional<bool> IsSameFile(const std::wstring& a, const std::wstring& b, Problems& problems);
// True when both can be read and hold the same.
bool IsSameContent(const std::wstring& a, const std::wstring& b);

// Names (without folder) of what stands in `folder` and ends in `ending`, ignoring case; sorted,
// ignoring case. Folders of such a name are among them. Empty when there is no folder. A name with
// a backslash, of which no path can be made, is left out with a problem. Only those that are
// `wanted`, if that is asked.
std::vector<std::wstring>
FindFiles(const std::wstring& folder, std::wstring_view ending, Problems& problems,
          const std::function<bool(const std::wstring& name)>& wanted = nullptr);

// Bytes of the largest file that is read as a whole: an eighth of the machine's memory. No size is
// too large for what is read; what is written here can be read again.
size_t LargestWholeFile();

// Reads a whole file, as large as it is when it is opened. False when it cannot be read or is
// larger than `limit` bytes.
bool ReadWholeFile(const std::wstring& path, std::string& bytes, size_t limit, Problems& problems);
bool ReadWholeFile(const std::wstring& path, std::string& bytes, Problems& problems);

// Puts `bytes` in place of the file, or makes it: a temporary file in the same folder is written,
// flushed to disk and renamed over the target. Who may do what with the file stays as it is (see
// linux/FileAccess.h); a new one gets that from the file at `like`, if there is one, and can be
// written. A file that nobody may write is refused. A link is replaced, not what it leads to. After
// a failure or a crash at any point the target holds its old content, whole, or the new one, whole,
// when only the folder could not be flushed. A crash may leave a temporary file behind
// (IsTemporaryFile).
bool WriteWholeFile(const std::wstring& path, std::string_view bytes, Problems& problems,
                    const std::wstring& like = {});
// Flushes the names in a folder to disk.
bool FlushFolder(const std::wstring& folder, Problems& problems);
bool IsTemporaryFile(std::wstring_view name);
// Deletes the temporary files of a folder that are older than a day and that no process of this
// machine writes any more. Adds no problem.
void DeleteLeftTemporaries(const std::wstring& folder);

// Copies a file of at most LargestWholeFile bytes over the target, in the same safe way; a new one
// is for those alone whom the source is for.
bool CopyFile(const std::wstring& source, const std::wstring& target, Problems& problems);
// Gives a file another path on the same disk; a file that is there is replaced. A link leads where
// it led. Flushed to disk, as deleting is: what was moved or deleted does not come back after a
// power failure.
bool MoveFile(const std::wstring& source, const std::wstring& target, Problems& problems);
// Gives a file a second name on the same disk, flushed; nothing may be there yet. False, without a
// problem, where that cannot be: then there is no second name. Whoever writes into one of them
// changes both; WriteWholeFile does not.
bool LinkFile(const std::wstring& source, const std::wstring& target);
// False when it is there and cannot be deleted, or when it is not there (no problem is added then).
bool DeleteFile(const std::wstring& path, Problems& problems);

// Deletes a file that does no harm when it stays or comes back: it is not flushed, and no problem
// is added.
void DropFile(const std::wstring& path);

// Removes a folder in which nothing stands; any other stays, without a problem.
void RemoveEmptyFolder(const std::wstring& path);
// Makes the folder and what is missing above it. True when it is there afterwards. A new one may be
// used by those who may use the folder at `like`, if there is one, as far as the system lets it be.
bool CreateFolder(const std::wstring& path, Problems& problems, const std::wstring& like = {});

} // namespace designspec
