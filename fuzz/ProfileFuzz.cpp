// A settings file of any bytes: reading and setting a key must end; a key that was set is there, a
// file that was refused is as it was.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "base/Profile.h"
#include "base/Text.h"
#include "fuzz/Fuzz.h"

using namespace designspec;

namespace {

// One folder for the whole run; it goes with the process.
class Folder {
public:
    Folder()
    {
        if (!mkdtemp(m_path.data())) std::abort();
    }
    ~Folder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    std::string File() const { return m_path + "/setting.ini"; }

private:
    std::string m_path =
        (std::filesystem::temp_directory_path() / "designspec-fuzz-XXXXXX").string();
};

std::string Read(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

FUZZ(bytes)
{
    static const Folder folder;
    std::ofstream(folder.File(), std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    const std::wstring file = ToWide(folder.File());
    Problems problems;
    GetPrivateProfileString(L"a", L"b", L"", file, problems);
    const std::wstring before = GetPrivateProfileString(L"设置", L"其他", L"", file, problems);
    if (!WritePrivateProfileString(L"设置", L"默认样式", L"0A-规范", file, problems)) {
        Require(Read(folder.File()) == bytes);
        return 0;
    }
    Require(GetPrivateProfileString(L"设置", L"默认样式", L"", file, problems) == L"0A-规范");
    Require(GetPrivateProfileString(L"设置", L"其他", L"", file, problems) == before);
    const std::string once = Read(folder.File());
    Require(WritePrivateProfileString(L"设置", L"默认样式", L"0A-规范", file, problems));
    Require(Read(folder.File()) == once);
    return 0;
}
