#include "platform/vmrd/VmHFCBaseU/Files.h"

#include <filesystem>

#include "platform/vmrd/VmHFCBaseU/Trace.h"
#include "platform/windows/File.h"

bool FileExists(const CString& path)
{
    return PathFileExists(path);
}

bool CreateFolder(const CString& path)
{
    std::error_code error = std::make_error_code(std::errc::invalid_argument);
    if (path.find(L'\0') == CString::npos)
        std::filesystem::create_directories(NativePath(path), error);
    if (!error && std::filesystem::is_directory(NativePath(path), error)) return true;
    TraceFile(TraceLevel::Error, path, 0, L"文件夹无法创建: " + ErrorText(error.value()));
    return false;
}
