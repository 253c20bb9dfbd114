#include "library/StyleStore.h"

#include "library/SpecificationReading.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

namespace designspec {

StyleStore::StyleStore(const CString& path)
    : m_open(CreateStylesNode(path, kLibraryName, kLibraryName, m_root, m_styles))
{
    CXTPPropExchangeEnumerator all =
        m_root.GetEnumerator((StylesPath(kLibraryName) + L"/Style").c_str());
    while (all.HasNext()) {
        CXTPPropExchange style = all.GetNext();
        GUID id;
        if (!VMRDPub::ParseGUID(style.Attribute(L"ID"), id)) continue;
        // A second one of an identity would be read over the first.
        if (!m_sections.try_emplace(VMRDPub::GUIDToStr(id), style).second) style.RemoveSection();
    }
}

void StyleStore::Store(const CDesignSpecification& specification)
{
    CXTPPropExchange& section = m_sections[VMRDPub::GUIDToStr(specification.ID())];
    if (!section.IsSectionExists()) section = m_styles.AppendSection(L"Style");
    // The exchange goes both ways and so takes no const object; storing changes none.
    const_cast<CDesignSpecification&>(specification).DoPropExchange(&section);
}

void StyleStore::Remove(const GUID& id)
{
    const auto found = m_sections.find(VMRDPub::GUIDToStr(id));
    if (found == m_sections.end()) return;
    found->second.RemoveSection();
    m_sections.erase(found);
}

} // namespace designspec
