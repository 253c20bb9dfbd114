// Files and folders. Paths are the module's own: "/" and "\" both separate. Every function that
// fails leaves a trace line with the file and the cause, unless it says otherwise. A path with a
// NUL in it names nothing: it is refused, never cut short.
#pragma once

#include <functional>
#include <string>

#include "platform/mfc/Text.h"

// The path for the operating system: UTF-8, with "/" for both separators.
AFX_EXT_API std::string NativePath(const CString& path);

// True for the name of one thing in a folder, which a path can be made of without leaving that
// folder: no separator, no NUL, neither "." nor "..", not empty, at most 255 bytes.
AFX_EXT_API bool IsFileName(std::wstring_view name);

// What an error number of the operating system means, for a reader.
AFX_EXT_API CString ErrorText(int error);

// True when something is there, whatever it is. No trace line.
AFX_EXT_API bool PathFileExists(const CString& path);
// True when both paths lead to one and the same file. No trace line.
AFX_EXT_API bool IsSameFile(const CString& a, const CString& b);

// Names (without folder) of what stands in `folder` and ends in `ending`, ignoring case; sorted,
// ignoring case. Folders of such a name are among them. Empty when there is no folder.
AFX_EXT_API CStringArray FindFiles(const CString& folder, std::wstring_view ending);

// Reads a whole file. False when it cannot be read or is larger than `limit` bytes.
AFX_EXT_API bool ReadWholeFile(const CString& path, std::string& bytes, size_t limit);

// Puts `bytes` in place of the file, or makes it: a temporary file in the same folder is written,
// flushed to disk and renamed over the target. Permissions of the file stay; a link is replaced,
// not what it leads to. After a failure or a crash at any point the target holds its old content,
// whole, or the new one, whole, when only the folder could not be flushed. A crash may leave a
// temporary file behind (IsTemporaryFile).
AFX_EXT_API bool WriteWholeFile(const CString& path, std::string_view bytes);
// Flushes the names in a folder to disk.
AFX_EXT_API bool FlushFolder(const CString& folder);
AFX_EXT_API bool IsTemporaryFile(std::wstring_view name);

// Copies a file of at most 256 MiB over the target, in the same safe way.
AFX_EXT_API bool CopyFile(const CString& source, const CString& target);
// Gives a file another path on the same disk; a file that is there is replaced. Flushed to disk,
// as deleting is: what was moved or deleted does not come back after a power failure.
AFX_EXT_API bool MoveFile(const CString& source, const CString& target);
// False when it is there and cannot be deleted, or when it is not there (no trace line for that).
AFX_EXT_API bool DeleteFile(const CString& path);

using FileChangeListener = std::function<void(const CString& path)>;
// Told of each file that one of these functions wrote, moved (both paths) or deleted, right after
// it did: what else happens to files was done by somebody else. Returns the listener before.
AFX_EXT_API FileChangeListener SetFileChangeListener(FileChangeListener listener);
