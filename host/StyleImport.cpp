#include "host/StyleImport.h"

#include <algorithm>
#include <optional>

#include "platform/vmrd/VMRDEnv/DeletedStyles.h"

namespace {

struct Known {
    GUID id;
    CString name;
};

std::vector<Known> AllOf(const CStyles& styles)
{
    std::vector<Known> all;
    for (int i = 0; i < styles.Count(); ++i)
        all.push_back({styles.Item(i)->ID(), styles.Item(i)->Name()});
    return all;
}

std::optional<CString> NameOf(const std::vector<Known>& styles, const GUID& id)
{
    for (const Known& style : styles)
        if (style.id == id) return style.name;
    return {};
}

// The identities that the import takes from the file.
std::vector<GUID> Chosen(const CStyles& styles, const CString& path, const CStringArray& names)
{
    CStringArray all;
    CArray<GUID> ids;
    styles.StyleNames(path.c_str(), all, ids);
    std::vector<GUID> chosen;
    for (size_t i = 0; i < all.size() && i < ids.size(); ++i) {
        const auto same = [&](const CString& name) { return EqualNoCase(name, all[i]); };
        if (names.empty() || std::any_of(names.begin(), names.end(), same))
            chosen.push_back(ids[i]);
    }
    return chosen;
}

bool SaveOverwritten(CStyles& styles, int index, const CString& nameBefore)
{
    const CStyle* const style = styles.Item(index);
    if (style->Name() != nameBefore && !SetStyleAside(styles, style->ID())) return false;
    return styles.SaveItem(index);
}

} // namespace

ImportResult ImportStyles(CStyles& styles, const CString& path, const CStringArray& names,
                          bool overwrite)
{
    ImportResult result;
    const std::vector<Known> before = AllOf(styles);
    const std::vector<GUID> chosen = Chosen(styles, path, names);
    result.read = styles.Import(path.c_str(), names, nullptr, overwrite);
    if (!result.read) return result;

    for (int i = 0; i < styles.Count(); ++i) {
        const GUID id = styles.Item(i)->ID();
        const std::optional<CString> nameBefore = NameOf(before, id);
        bool saved = true;
        if (!nameBefore) {
            ++result.added;
            saved = styles.SaveItem(i);
        } else if (overwrite && std::find(chosen.begin(), chosen.end(), id) != chosen.end()) {
            ++result.overwritten;
            saved = SaveOverwritten(styles, i, *nameBefore);
        }
        if (!saved) ++result.failed;
    }
    return result;
}
