#include "app/DesignSpecificationGroup.h"

#include "pages/framework/FamilyIcon.h"

IMPLEMENT_DYNAMIC(CDesignSpecificationGroup, CStyleGroup)

CDesignSpecificationGroup::CDesignSpecificationGroup() : m_icon(FamilyIcon(L"IDI_ICON_BOOK")) {}
