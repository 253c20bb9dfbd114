// The style manager's group of design specifications.
#pragma once

#include "platform/vmrd/VMRDPrj/StyleGroup.h"

class CDesignSpecificationGroup : public CStyleGroup {
    DECLARE_DYNAMIC(CDesignSpecificationGroup)

public:
    CDesignSpecificationGroup();

    CString Name() const override { return L"设计规范"; }
    QIcon Icon() const override { return m_icon; }
    bool HasStyles() const override { return true; }

private:
    QIcon m_icon;
};
