#include "platform/vmrd/VMRDEnv/DeletedStyles.h"

#include <iterator>
#include <utility>

#include "base/File.h"
#include "base/Format.h"
#include "base/Text.h"

namespace designspec {

DeletedStyles::DeletedStyles(CString path, CString library)
    : m_path(std::move(path)), m_library(std::move(library))
{
}

CString DeletedStyles::PathOf(const CString& file) const
{
    return m_path.empty() ? CString() : m_path + L'\\' + file;
}

CString DeletedStyles::FreeName(const CString& file,
                                const std::function<std::optional<bool>(const CString&)>& isTaken)
{
    const CString stem = file.substr(0, file.size() - std::size(kStyleFileEnding) + 1);
    CString name = file;
    for (int k = 1;; ++k) {
        const auto taken = isTaken(name);
        if (!taken) return {};
        if (!*taken) return name;
        name = Format(L"%s(%d)%s", stem, k, CString(kStyleFileEnding));
    }
}

CString DeletedStyles::FreeName(const CString& file, Problems& problems) const
{
    return FreeName(file,
                    [&](const CString& name) { return PathFileExists(PathOf(name), problems); });
}

CString DeletedStyles::Place(const CString& file, Problems& problems) const
{
    return CreateFolder(m_path, problems) ? FreeName(file, problems) : CString();
}

CString DeletedStyles::Copy(const CString& path, const CString& file, Problems& problems) const
{
    const CString name = Place(file, problems);
    return !name.empty() && CopyFile(path, PathOf(name), problems) ? name : CString();
}

CString DeletedStyles::Move(const CString& path, const CString& file, Problems& problems) const
{
    const CString name = Place(file, problems);
    return !name.empty() && MoveFile(path, PathOf(name), problems) ? name : CString();
}

CString DeletedStyles::Save(const CXTPPropExchangeXMLNode& root, const CString& file,
                            Problems& problems) const
{
    const CString name = Place(file, problems);
    return !name.empty() && WriteWholeFile(PathOf(name), root.SaveToBytes(), problems) ? name
                                                                                       : CString();
}

void DeletedStyles::Tell(const CString& path, const CString& file, Problems& problems) const
{
    AddProblem(problems, Severity::Note, path, 0, L"已移至 " + ToWide(NativePath(PathOf(file))));
}

std::optional<std::vector<StyleEntry>> DeletedStyles::Entries(const CString& file,
                                                              Problems& problems) const
{
    return EntriesOf(PathOf(file), m_library, problems);
}

std::vector<DeletedStyle> DeletedStyles::List(Problems& problems) const
{
    std::vector<DeletedStyle> deleted;
    for (const CString& file : FindFiles(m_path, kStyleFileEnding, problems)) {
        const auto entries = Entries(file, problems);
        if (entries && !entries->empty())
            deleted.push_back({file, entries->front().name, entries->front().id});
    }
    return deleted;
}

} // namespace designspec
