// What a page knows of the dialog around it.
#pragma once

class CDSCallback;

class CPageHost {
public:
    // True when the specification may only be looked at.
    virtual bool IsViewMode() const = 0;
    // Selects the tree item of the page that the callback belongs to.
    virtual void SelectPage(const CDSCallback* callback) = 0;

    // Lets the user choose the specification that curves of all pages are compared with; not
    // wanted: there is none from now on.
    virtual void AskCompared(bool /*wanted*/) {}

protected:
    ~CPageHost() = default;
};
