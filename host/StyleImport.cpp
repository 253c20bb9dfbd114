#include "host/StyleImport.h"

#include <algorithm>

#include "base/NoCase.h"
#include "platform/vmrd/VMRDEnv/DeletedStyles.h"

using namespace designspec;

namespace {

std::vector<GUID> IdsOf(const CStyles& styles)
{
    std::vector<GUID> ids;
    for (int i = 0; i < styles.Count(); ++i)
        ids.push_back(styles.Item(i)->ID());
    return ids;
}

bool Has(const std::vector<GUID>& ids, const GUID& id)
{
    return std::find(ids.begin(), ids.end(), id) != ids.end();
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

} // namespace

ImportResult ImportStyles(CStyles& styles, const CString& path, const CStringArray& names,
                          bool overwrite)
{
    ImportResult result;
    const std::vector<GUID> before = IdsOf(styles);
    const std::vector<GUID> chosen = Chosen(styles, path, names);
    result.read = styles.Import(path.c_str(), names, nullptr, overwrite);
    if (!result.read) return result;

    for (int i = 0; i < styles.Count(); ++i) {
        const GUID id = styles.Item(i)->ID();
        const bool known = Has(before, id);
        if (known && !(overwrite && Has(chosen, id))) continue;
        ++(known ? result.overwritten : result.added);
        const bool saved = (!known || SetStyleAside(styles, id)) && styles.SaveItem(i);
        if (!saved) ++result.failed;
    }
    return result;
}
