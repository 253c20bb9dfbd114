// What a page knows of the dialog around it.
#pragma once

class CDSCallback;

class CPageHost {
public:
    // True when the specification may only be looked at.
    virtual bool IsViewMode() const = 0;
    // Selects the tree item of the page that the callback belongs to.
    virtual void SelectPage(const CDSCallback* callback) = 0;

protected:
    ~CPageHost() = default;
};
