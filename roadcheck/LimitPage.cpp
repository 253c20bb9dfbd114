#include "roadcheck/LimitPage.h"

#include <QObject>

#include "base/NoCase.h"
#include "library/DesignSpecifications.h"
#include "model/Criteria.h"
#include "platform/arx/Modules.h"
#include "platform/mfc/QtText.h"

using namespace designspec;

namespace roadcheck {

namespace {

constexpr wchar_t kEditorModule[] = L"DesignSpecification.arx";

using ShowPage = void (*)(const wchar_t* page);
using ShowPageOf = void (*)(const wchar_t* name, const wchar_t* page);

template <class Function> Function EditorFunction(const char* name)
{
    return reinterpret_cast<Function>(FindModuleFunction(kEditorModule, name));
}

bool IsDefault(const CDesignSpecification& specification)
{
    const CStyle* const standard = CDesignSpecifications::GetInstance()->DefaultItem();
    return standard && standard->ID() == specification.ID();
}

// The editor's groups, by the first criterion of each.
const wchar_t* GroupOf(const CriterionInfo& criterion)
{
    const wchar_t* group = L"平面";
    for (const CriterionInfo& one : Criteria()) {
        if (EqualNoCase(one.name, L"LonGrad")) group = L"纵断";
        if (EqualNoCase(one.name, L"MaxSuperElev")) group = L"超高加宽";
        if (&one == &criterion) break;
    }
    return group;
}

} // namespace

CString PageOf(const std::wstring& criterion)
{
    const CriterionInfo* const found = FindCriterion(criterion.substr(0, criterion.find(L'.')));
    return found ? CString(GroupOf(*found)) + L"\\" + found->label : CString();
}

QString ShowLimitPage(const CString& specification, const std::wstring& criterion)
{
    if (!IsEditorLoaded())
        return QObject::tr("限值所在的页无法打开: 没有加载模块 %1").arg(ToQString(kEditorModule));
    const CDesignSpecification* const meant =
        CDesignSpecifications::GetInstance()->Item(specification.c_str());
    if (!meant)
        return QObject::tr("限值所在的页无法打开: 没有规范“%1”").arg(ToQString(specification));
    const CString page = PageOf(criterion);
    const auto show = EditorFunction<ShowPage>("ViewDesignSpecification");
    const auto showOf = EditorFunction<ShowPageOf>("ViewDesignSpecificationOf");
    if (IsDefault(*meant) && show)
        show(page.c_str());
    else if (showOf)
        showOf(specification.c_str(), page.c_str());
    else
        return QObject::tr("限值所在的页无法打开: 已加载的模块只能显示默认规范");
    return {};
}

bool IsEditorLoaded()
{
    return IsModuleLoaded(kEditorModule);
}

} // namespace roadcheck
