#include "platform/vmrd/VMRDEnv/DeletedStyles.h"

#include <algorithm>

#include "base/File.h"
#include "base/Format.h"
#include "base/Text.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "platform/vmrd/VmHFCBaseU/Files.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

using namespace designspec;

namespace {

constexpr wchar_t kEnding[] = L".hds";

CString InFolder(const CString& folder, const CString& file)
{
    return Format(L"%s\\%s", folder, file);
}

bool Refuse(const CString& path, const wchar_t* why)
{
    TraceFile(TraceLevel::Error, path, 0, why);
    return false;
}

// A name in the folder of the deleted ones that no file has yet.
CString FreeDeletedPath(const CString& file)
{
    const CString stem = file.substr(0, file.size() - std::size(kEnding) + 1);
    CString path = InFolder(DeletedStylesFolder(), file);
    for (int k = 1; PathFileExists(path); ++k)
        path = InFolder(DeletedStylesFolder(), Format(L"%s(%d)%s", stem, k, kEnding));
    return path;
}

} // namespace

CString StylesFolder()
{
    return InFolder(VMRDPub::GetCurPrjPath(), kStylesFolder);
}

CString DeletedStylesFolder()
{
    return StylesFolder() + L"\\已删除";
}

bool SetStyleAside(const CStyles& styles, const CString& file, const GUID& id)
{
    if (!IsFileName(file)) return Refuse(StylesFolder(), L"文件名无效");
    const CString path = InFolder(StylesFolder(), file);
    CStringArray names;
    CArray<GUID> ids;
    if (!styles.StyleNames(path.c_str(), names, ids)) return false;
    // A style without a readable identity has another one each time it is read.
    const auto others =
        std::count_if(ids.begin(), ids.end(), [&](const GUID& other) { return other != id; });
    const bool alone = ids.size() == 1 || others == 0;
    if (ids.empty() || (!alone && others == std::ssize(ids)))
        return Refuse(path, L"文件中没有要删除的样式");
    if (!CreateFolder(DeletedStylesFolder())) return false;

    const CString aside = FreeDeletedPath(file);
    if (alone ? !MoveFile(path, aside) : !CopyFile(path, aside)) return false;
    if (!alone && !styles.RemoveFromFile(path.c_str(), id)) {
        DeleteFile(aside);
        return false;
    }
    TraceFile(TraceLevel::Note, path, 0, L"已移至 " + ToWide(NativePath(aside)));
    return true;
}

bool SetStyleAside(const CStyles& styles, const GUID& id)
{
    bool done = true;
    for (const CString& file : FindFiles(StylesFolder(), kEnding)) {
        CStringArray names;
        CArray<GUID> ids;
        if (!styles.StyleNames(InFolder(StylesFolder(), file).c_str(), names, ids)) {
            // By its name, the style was saved there.
            if (file.find(VMRDPub::GUIDToStr(id)) != CString::npos) done = false;
        } else if (std::find(ids.begin(), ids.end(), id) != ids.end()) {
            done = SetStyleAside(styles, file, id) && done;
        }
    }
    return done;
}

std::vector<DeletedStyle> DeletedStyles(const CStyles& styles)
{
    std::vector<DeletedStyle> deleted;
    for (const CString& file : FindFiles(DeletedStylesFolder(), kEnding)) {
        CStringArray names;
        CArray<GUID> ids;
        const CString path = InFolder(DeletedStylesFolder(), file);
        if (styles.StyleNames(path.c_str(), names, ids) && !ids.empty())
            deleted.push_back({file, names.front(), ids.front()});
    }
    return deleted;
}

bool BringStyleBack(const CString& file)
{
    if (!IsFileName(file)) return Refuse(DeletedStylesFolder(), L"文件名无效");
    const CString target = InFolder(StylesFolder(), file);
    if (!PathFileExists(target)) return MoveFile(InFolder(DeletedStylesFolder(), file), target);
    return Refuse(target, L"无法恢复: 同名文件已存在");
}
