#include "cli/Operands.h"

#include "base/File.h"
#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Text.h"
#include "library/SpecificationSource.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

struct Operands::Place {
    CString path;
    CString name; // empty: none is given
};

namespace {

CString Choice(const SpecificationFolder& folder)
{
    if (folder.Count() == 0) return L"其中没有设计规范";
    CString text = L"可选:";
    for (const CString& name : NamesOf(folder))
        text += L"\n  " + Printable(name);
    return text;
}

bool IsStyleFile(const std::string& word)
{
    return EndsInNoCase(ToWide(word), kStyleFileEnding);
}

} // namespace

Operands::Operands(const Arguments& arguments, Teller& teller)
    : m_arguments(arguments), m_teller(teller)
{
}

bool Operands::IsPath(const std::string& word)
{
    return word.find('/') != std::string::npos || IsStyleFile(word) ||
           IsStyleFile(word.substr(0, word.rfind('#')));
}

// A file's own name may hold a "#", too.
std::optional<Operands::Place> Operands::PlaceOf(const std::string& word) const
{
    if (PathFileExists(ToWide(word))) return Place{PathArgument(word), {}};
    for (size_t at = word.rfind('#'); at != std::string::npos && at > 0;
         at = word.rfind('#', at - 1)) {
        const std::string path = word.substr(0, at);
        if (PathFileExists(ToWide(path)))
            return Place{PathArgument(path), ToWide(word.substr(at + 1))};
    }
    return std::nullopt;
}

const SpecificationFolder& Operands::Open(const CString& path)
{
    auto& opened = m_opened[path];
    if (!opened) {
        Problems problems;
        opened = ReadSpecificationsAt(path, problems);
        m_teller.Tell(problems);
        if (!opened) throw CommandFailure{kFileFailed, Format(L"%s: 无法读取设计规范", path)};
    }
    return *opened;
}

Project& Operands::Library()
{
    if (!m_project) m_project = std::make_unique<Project>(m_arguments, m_teller);
    return *m_project;
}

// Null when no project is named and the current folder is none.
Project* Operands::LibraryHere()
{
    const bool isHere =
        !m_arguments.project.empty() || PathFileExists(StylesFolderOf(VMRDPub::GetCurPrjPath()));
    return isHere ? &Library() : nullptr;
}

const CDesignSpecification& Operands::Find(const std::string& word)
{
    const std::vector<CDesignSpecification*> found = FindAll(word);
    if (found.size() == 1) return *found.front();
    const SpecificationFolder& folder = Open(PlaceOf(word)->path);
    if (const CDesignSpecification* const standard = FindSpecification(folder, {}))
        return *standard;
    Refuse(Format(L"“%s”不止一个设计规范,请写作“%s#名称”。%s", ToWide(word), ToWide(word),
                  Choice(folder)));
}

std::vector<CDesignSpecification*> Operands::FindAll(const std::string& word)
{
    if (!IsPath(word))
        if (const Project* const project = LibraryHere())
            if (CDesignSpecification* const found =
                    FindSpecification(project->Folder(), ToWide(word)))
                return {found};
    const auto place = PlaceOf(word);
    if (!place) {
        if (IsPath(word))
            throw CommandFailure{kFileFailed, Format(L"%s: 文件不存在", ToWide(word))};
        const Project* const project = LibraryHere();
        Refuse(Format(L"没有设计规范“%s”,也没有这个文件。%s", ToWide(word),
                      project ? Choice(project->Folder()) : CString()));
    }
    const SpecificationFolder& folder = Open(place->path);
    std::vector<CDesignSpecification*> found;
    if (place->name.empty()) {
        for (int i = 0; i < folder.Count(); ++i)
            found.push_back(folder.Item(i));
        if (found.empty()) Refuse(Format(L"“%s”中没有设计规范", place->path));
        return found;
    }
    if (CDesignSpecification* const one = FindSpecification(folder, place->name)) return {one};
    Refuse(Format(L"“%s”中没有设计规范“%s”。%s", place->path, place->name, Choice(folder)));
}
