#include "platform/vmrd/VmHFCBaseU/Files.h"

#include <filesystem>

#include "base/File.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

using namespace designspec;

bool FileExists(const CString& path)
{
    return PathFileExists(path);
}

bool CreateFolder(const CString& path)
{
    std::error_code error = std::make_error_code(std::errc::invalid_argument);
    bool isNew = false;
    if (path.find(L'\0') == CString::npos)
        isNew = std::filesystem::create_directories(NativePath(path), error);
    if (!error && std::filesystem::is_directory(NativePath(path), error))
        return !isNew || FlushFolder(path + L"/..");
    TraceFile(TraceLevel::Error, path, 0, L"文件夹无法创建: " + ErrorText(error.value()));
    return false;
}
