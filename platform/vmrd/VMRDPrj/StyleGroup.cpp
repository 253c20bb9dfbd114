#include "platform/vmrd/VMRDPrj/StyleGroup.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CStyleGroup, CObject)

namespace {

template <class T> T* At(const std::vector<std::unique_ptr<T>>& owned, int index)
{
    const bool within = index >= 0 && static_cast<size_t>(index) < owned.size();
    return within ? owned[static_cast<size_t>(index)].get() : nullptr;
}

} // namespace

CStyleGroup::CStyleGroup() = default;
CStyleGroup::~CStyleGroup() = default;

QIcon CStyleGroup::Icon() const
{
    return {};
}

bool CStyleGroup::HasStyles() const
{
    return false;
}

void CStyleGroup::AddChild(CStyleGroup* child)
{
    if (child) m_children.emplace_back(child);
}

int CStyleGroup::ChildrenCount() const
{
    return static_cast<int>(m_children.size());
}

CStyleGroup* CStyleGroup::GetChild(int index) const
{
    return At(m_children, index);
}

void CStyleGroup::AddStyles(CStyleEditor* editor)
{
    if (editor) m_editors.emplace_back(editor);
}

int CStyleGroup::StylesCount() const
{
    return static_cast<int>(m_editors.size());
}

CStyleEditor* CStyleGroup::GetStyles(int index) const
{
    return At(m_editors, index);
}

void CStyleGroup::Refurbish()
{
    for (const auto& editor : m_editors)
        editor->Refurbish();
    for (const auto& child : m_children)
        child->Refurbish();
}

bool CStyleGroup::IsOwnFile(const CString& file) const
{
    const auto isOwn = [&file](const auto& editor) {
        CStyles* const styles = editor->GetStyles();
        return styles && styles->Files().IsKnown(file);
    };
    return std::any_of(m_editors.begin(), m_editors.end(), isOwn) ||
           std::any_of(m_children.begin(), m_children.end(),
                       [&file](const auto& child) { return child->IsOwnFile(file); });
}
