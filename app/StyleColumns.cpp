#include "app/StyleColumns.h"

#include <QDateTime>
#include <QFileInfo>

#include "base/File.h"
#include "base/Format.h"
#include "library/DesignSpecifications.h"
#include "model/Criteria.h"
#include "model/FieldValue.h"
#include "platform/mfc/QtText.h"

namespace designspec {

namespace {

CString TimeOf(const CDesignSpecification& specification)
{
    const SpecificationFolder& folder = CDesignSpecifications::GetInstance()->Folder();
    const CString file = folder.FileOf(specification);
    if (file.empty()) return {};
    const QFileInfo info(QString::fromStdString(NativePath(folder.Files().PathOf(file))));
    return FromQString(info.lastModified().toString(QStringLiteral("yyyy-MM-dd HH:mm")));
}

CString RoadTypes(const CDSMaxResultantGrad& gradients)
{
    CString types;
    for (const Field& field : CDSMaxResultantGrad::Fields())
        if (field.IsTable() && field.RowCount(&gradients) > 0)
            types += (types.empty() ? L"" : L"、") + CString(field.label);
    return types;
}

template <class Criterion> int SourcesMissing(const Criterion& criterion)
{
    int count = 0;
    for (const Field& field : Criterion::Fields())
        if (field.kind == FieldKind::Text && CString(field.label).ends_with(L"数据来源") &&
            field.Of<CString>(&criterion).empty())
            ++count;
    return count;
}

CString MissingSources(const CDesignSpecification& specification)
{
    int count = 0;
    ForEachCriterion([&](const auto& one) { count += SourcesMissing(specification.*one.member); });
    return count == 0 ? CString() : Format(L"缺 %d 处", count);
}

} // namespace

std::span<const StyleColumn> SpecificationColumns()
{
    static constexpr StyleColumn kColumns[] = {
        {L"修改时间", 13}, {L"道路类型", 16, true}, {L"数据来源", 9}};
    return kColumns;
}

CStringArray SpecificationColumnTexts(const CDesignSpecification& specification)
{
    return {TimeOf(specification), RoadTypes(specification.MaxResultantGrad),
            MissingSources(specification)};
}

} // namespace designspec
