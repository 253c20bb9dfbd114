#include "library/SpecificationEdit.h"

#include "base/Format.h"

using namespace designspec;

CString ProposedName(const CDesignSpecifications& library)
{
    return Format(L"规范%d", library.Count() + 1);
}

CString ProposedCopyName(const CDesignSpecifications& library, const CString& source)
{
    CString name = Format(L"%s[副本]", source);
    for (int k = 1; library.Item(name.c_str()); ++k)
        name = Format(L"%s[副本%d]", source, k);
    return name;
}

bool RenameSpecification(CDesignSpecifications& library, CDesignSpecification& specification,
                         const CString& newName)
{
    const CString oldName = specification.Name();
    library.Rename(oldName.c_str(), newName.c_str());
    specification.SetName(newName.c_str());
    return library.SaveRenamed(&specification, oldName);
}

bool ImportAndSave(CDesignSpecifications& library, const wchar_t* path, const CStringArray& names,
                   bool overwrite)
{
    std::vector<CDesignSpecification> before;
    for (int i = 0; i < library.Count(); ++i)
        before.push_back(static_cast<const CDesignSpecification&>(*library.Item(i)));
    if (!library.Import(path, names, nullptr, overwrite)) return false;

    bool done = true;
    for (int i = 0; i < library.Count(); ++i) {
        const auto& item = static_cast<const CDesignSpecification&>(*library.Item(i));
        const bool isNew = static_cast<size_t>(i) >= before.size();
        if (isNew || !(item == before[static_cast<size_t>(i)])) done = library.Save(&item) && done;
    }
    return done;
}
