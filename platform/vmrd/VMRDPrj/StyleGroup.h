// A group of the style manager: groups below it, and the editors whose styles it shows.
#pragma once

#include <memory>

#include <QIcon>

#include "base/Export.h"
#include "platform/mfc/String.h"
#include "platform/vmrd/VMRDPrj/StyleEditor.h"

class AFX_EXT_CLASS CStyleGroup : public CObject {
    DECLARE_DYNAMIC(CStyleGroup)

public:
    CStyleGroup();
    CStyleGroup(const CStyleGroup&) = delete;
    CStyleGroup& operator=(const CStyleGroup&) = delete;
    ~CStyleGroup() override;

    virtual CString Name() const = 0;
    virtual QIcon Icon() const;
    // True when the group shows styles of its own; false when it only gathers groups.
    virtual bool HasStyles() const;

    // A group owns the groups below it and its editors. Null is not taken. An index out of range
    // gives null.
    virtual void AddChild(CStyleGroup* child);
    virtual int ChildrenCount() const;
    virtual CStyleGroup* GetChild(int index) const;
    virtual void AddStyles(CStyleEditor* editor);
    virtual int StylesCount() const;
    virtual CStyleEditor* GetStyles(int index) const;
    // Reads the libraries of the group and of those below it anew: the first load, another
    // project, files that were changed by someone else.
    void Refurbish();
    // Whether one of these libraries left the file of that name in its folder as it is now.
    bool IsOwnFile(const CString& file) const;

private:
    std::vector<std::unique_ptr<CStyleGroup>> m_children;
    std::vector<std::unique_ptr<CStyleEditor>> m_editors;
};
