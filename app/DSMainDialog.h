// The dialog in which one specification is made, edited or looked at: a tree of criteria on the
// left, the page of the selected one on the right.
#pragma once

#include "app/EditStore.h"
#include "pages/PageTable.h"
#include "search/SpecificationIndex.h"

class CBuiltInMarks;
class QScrollArea;
class QTreeWidget;
class QTreeWidgetItem;

class CDSMainDialog : public CDialog, public CPageHost {
public:
    // `name` is the specification to edit, or the name proposed for a new one; `source` the one
    // that a new one starts from, null for the built-in limits.
    CDSMainDialog(const CString& name, bool isNew, const wchar_t* source, QWidget* parent,
                  std::span<const PageEntry> pages = PageTable());
    ~CDSMainDialog() override;

    // Before DoModal: nothing can be changed. `page` is the page to show first, group label,
    // backslash and page label; any other text shows the first one.
    void SetViewMode(const wchar_t* page);

    bool IsViewMode() const override { return m_viewMode; }
    void SelectPage(const CDSCallback* callback) override;
    void AskCompared(bool wanted) override;

    // Esc and the window's own button: asks when something was changed; 取消 is meant as it is.
    void reject() override;

    int PageCount() const { return static_cast<int>(m_pages.size()); }
    // Group label, backslash and page label.
    CString PagePath(int index) const;
    void SelectPage(int index);

protected:
    bool OnInitDialog() override;
    bool focusNextPrevChild(bool next) override;
    void OnOK() override;

private:
    enum Image { kGroupImage, kShownImage, kOtherImage };
    struct Page {
        CString group;
        CString label;
        std::unique_ptr<CDSPage> window;
        QTreeWidgetItem* item = nullptr;

        CDSCallback& Callback() const { return window->Callback(); }
    };

    void RegisterPages(std::span<const PageEntry> entries);
    void PlacePages();
    void LoadPages();
    bool IsChanged() const;
    void BuildTree();
    void MarkBuiltIn();
    QTreeWidgetItem* GroupItem(const CString& label);
    void SetImage(QTreeWidgetItem* item, Image image) const;
    void EnterViewMode();
    void OnSelChanged(const QTreeWidgetItem* selected);
    const Page* Shown() const;
    void TakeFrom();
    void Fill(const CDesignSpecification& values);
    void UndoTake();
    void MakeSearch();
    designspec::SpecificationIndex ShownIndex() const;
    void GoTo(const designspec::SearchHit& hit, bool enter);

    bool CheckName(const CString& name);
    bool ValidatePages();
    CDesignSpecification Entered(const CString& name) const;
    CEditStore::Result Settle(const CString& name);
    bool Store(const CString& name);
    bool StoreNew(const CString& name);
    bool StoreEdited(const CString& name);
    void Show(const CString& message);

    CString m_name;
    bool m_isNew;
    CString m_source;
    // The specification that is edited, as the dialog opened with it, and what the pages showed
    // then.
    std::optional<CDesignSpecification> m_opened, m_filled;
    // What was taken from other specifications: as it was before, and with the values taken.
    std::vector<std::pair<CDesignSpecification, CDesignSpecification>> m_taken;
    bool m_viewMode = false;
    CString m_viewPage;
    QTreeWidget* m_tree = nullptr;
    QScrollArea* m_scroll = nullptr;
    CBuiltInMarks* m_marks = nullptr;
    QIcon m_images[3];
    std::vector<Page> m_pages;
};
