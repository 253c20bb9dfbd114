#include "app/ImportChanges.h"

#include "base/Format.h"
#include "model/Criteria.h"
#include "model/DifferenceLine.h"

namespace designspec {

namespace {

// 圆曲线半径 · 设超高最小半径 车速 80 km/h: 250 m → 300 m
CString Line(const Difference& one)
{
    const CString page =
        one.place.criterion ? one.place.criterion->label + CString(L" · ") : CString();
    const CString key = one.key.empty() ? CString() : L" " + one.key;
    return Format(L"%s%s%s: %s → %s", page, one.label, key, one.left.value_or(L"—"),
                  one.right.value_or(L"—"));
}

StyleChanges ChangesOf(const std::vector<Difference>& differences)
{
    StyleChanges changes{InOneLine(differences), {}};
    for (const Difference& one : differences)
        changes.all.push_back(Line(one));
    return changes;
}

} // namespace

std::vector<std::optional<StyleChanges>>
ChangesOfImport(const SpecificationFolder& library, const CString& path, const CArray<GUID>& ids)
{
    SpecificationFolder file(L"");
    file.TakeIn(path, {}, false); // of what cannot be read the import tells
    std::vector<std::optional<StyleChanges>> changes;
    for (const GUID& id : ids) {
        const CDesignSpecification* const now = library.Find(id);
        const CDesignSpecification* const theirs = file.Find(id);
        changes.emplace_back();
        if (now && theirs) changes.back() = ChangesOf(Differences(*now, *theirs));
    }
    return changes;
}

} // namespace designspec
