#include "model/DesignSpecification.h"

#include <utility>

#include "base/NoCase.h"
#include "model/Criteria.h"
#include "model/UnknownContent.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "platform/xtp/PropExchange.h"

using namespace designspec;

IMPLEMENT_DYNAMIC(CDesignSpecification, CStyle)

CDesignSpecification::CDesignSpecification() : m_id(CoCreateGuid()) {}

CDesignSpecification::CDesignSpecification(const CDesignSpecification&) = default;

CDesignSpecification::~CDesignSpecification() = default;

const CDesignSpecification& CDesignSpecification::operator=(const CDesignSpecification& other)
{
    if (this == &other) return *this;
    m_strName = other.m_strName;
    m_nameKey = other.m_nameKey;
    m_id = other.m_id;
    CopyCriteria(other);
    m_identityChanged.Tell();
    return *this;
}

CString CDesignSpecification::Name() const
{
    return m_strName;
}

GUID CDesignSpecification::ID() const
{
    return m_id;
}

void CDesignSpecification::SetName(const wchar_t* name)
{
    m_strName = name;
    m_nameKey = NoCaseKey(m_strName);
    m_identityChanged.Tell();
}

Connection CDesignSpecification::ConnectIdentity(Signal<>::Function listener)
{
    return m_identityChanged.Connect(std::move(listener));
}

void CDesignSpecification::CopyCriteria(const CDesignSpecification& other)
{
    ForEachCriterion([&](const auto& one) { this->*one.member = other.*one.member; });
    m_unknown = other.m_unknown;
}

bool CDesignSpecification::operator==(const CDesignSpecification& other) const
{
    bool same = m_strName == other.m_strName && m_id == other.m_id && m_unknown == other.m_unknown;
    ForEachCriterion(
        [&](const auto& one) { same = same && this->*one.member == other.*one.member; });
    return same;
}

void CDesignSpecification::DoPropExchange(CXTPPropExchange* pPX)
{
    const size_t foundBefore = pPX->FoundCount();
    ExchangeAll(pPX);
    if (pPX->IsStoring())
        AddUnknownContent(m_unknown, *pPX);
    else if (pPX->FoundCount() - foundBefore == pPX->NameCount())
        m_unknown.clear(); // all of it was read
    else
        m_unknown = UnknownContent(*pPX);
}

void CDesignSpecification::ExchangeAll(CXTPPropExchange* pPX)
{
    pPX->EnableCompactMode(true);
    PX_String(pPX, L"Name", m_strName);
    if (pPX->IsLoading()) m_nameKey = NoCaseKey(m_strName);
    CString id = VMRDPub::GUIDToStr(m_id);
    if (pPX->IsLoading()) id.clear();
    PX_String(pPX, L"ID", id);
    if (pPX->IsLoading()) {
        m_id = VMRDPub::StrToGUID(id);
        m_identityChanged.Tell();
    }

    ForEachCriterion([&](const auto& one) {
        auto& criterion = this->*one.member;
        CXTPPropExchange section =
            pPX->IsStoring() ? pPX->ReplaceSection(one.name) : pPX->FindSection(one.name);
        if (section.IsSectionExists())
            criterion.DoPropExchange(&section);
        else
            criterion = std::remove_reference_t<decltype(criterion)>();
    });
}
