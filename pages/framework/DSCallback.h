// Through this the main dialog drives a page.
#pragma once

#include "library/DesignSpecifications.h"
#include "pages/framework/PageHost.h"

class CDSPage;

namespace designspec {

struct CriterionInfo;

} // namespace designspec

// Lives in its page. The order of the virtual functions is the order in which they are called on
// from outside; it stays.
class CDSCallback {
public:
    explicit CDSCallback(CDSPage* page) : m_pPage(page) {}
    CDSCallback(const CDSCallback&) = delete;
    CDSCallback& operator=(const CDSCallback&) = delete;
    virtual ~CDSCallback();

    // Fills the page from the specification of that name and remembers the name.
    virtual void Load(const wchar_t* name) = 0;
    // The specification has another name now.
    virtual void Rename(const wchar_t* name) = 0;
    // True when the page could be saved as it is; false with a message for the user.
    virtual bool Validate(CString& message) = 0;
    // Writes the page into the specification. False when there is none of the name, or the page
    // is not valid.
    virtual bool Save() = 0;
    // The same into the specification of another name, which is the page's from now on.
    virtual bool RenameAndSave(const wchar_t* name) = 0;
    // Brings the page to the front.
    virtual void Activate();
    // The page has come to the front.
    virtual void OnShow();
    // Writes the page as far as it is valid into a specification that needs not be the library's.
    virtual void StoreInto(CDesignSpecification& specification);
    // Fills the page from a specification that needs not be the library's, as the user could: one
    // step of undo in each grid. A page that holds the same already stays as it is.
    virtual void TakeFrom(const CDesignSpecification& specification);
    // Whether the page's values are the built-in ones as yet, whatever its data sources.
    virtual bool IsBuiltIn();
    // What the page is for; null when that is no single criterion.
    virtual const designspec::CriterionInfo* Info() const;

    // False until the page is registered with its main dialog.
    bool IsViewMode() const;
    // The user wants curves to be compared with another specification, or no more.
    void AskCompared(bool wanted);
    void SetMainDialog(CPageHost* mainDialog) { m_pMainDialog = mainDialog; }

protected:
    CDSPage* Page() const { return m_pPage; }
    // The specification of the remembered name; null when the library has none.
    CDesignSpecification* Specification() const;

    CString m_strName;

private:
    CPageHost* m_pMainDialog = nullptr;
    CDSPage* m_pPage;
};
