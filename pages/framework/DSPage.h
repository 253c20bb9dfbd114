// A page of the main dialog: one criterion of a specification.
//
// How a page is written (CRadiusDialog is the model):
//   - the form NAME.ui beside it, named in pages.qrc by its resource number;
//   - a class derived from CCriterionPage<Criterion> (CriterionPage.h) with the steps InitPage,
//     LoadStep and StoreStep, which says in its constructor what view mode locks and which
//     buttons open which data source;
//   - a callback class derived from CDSPageCallback (PageCallback.h), a member of the page;
//   - a grid keyed by speed is a CSpeedTableGrid (SpeedTableGrid.h) with a table of its rows, or a
//     CSpeedGrid (SpeedGrid.h) when its rows are not fixed or its menu offers more than speeds;
//   - cells are CMyRecordItemPositiveInt, CMyRecordItemPositiveDouble, or a class of the page's
//     own derived from CMyRecordItemValue;
//   - a line in pages/PageTable.cpp.
#pragma once

#include <functional>
#include <initializer_list>
#include <memory>

#include <QIcon>

#include "pages/framework/DSCallback.h"
#include "pages/framework/MyRecordItemValue.h"
#include "platform/mfc/Dialog.h"
#include "platform/xtp/report/ReportControl.h"

class QPushButton;

namespace designspec {

class GridCurves;

} // namespace designspec

class CDSPage : public CDialog {
public:
    // Controls that most pages with a grid have.
    static constexpr int kGridPlaceholder = 106;
    static constexpr int kSourceButton = 118;
    static constexpr int kHint = 119;
    static constexpr int kGrid = 10001;
    static constexpr int kCurves = 130; // 图, which pages with tables get beside their hint

    explicit CDSPage(UINT nIDTemplate);

    virtual CDSCallback& Callback() = 0;
    bool IsViewMode() { return Callback().IsViewMode(); }

    // For view mode: no grid can be edited, the hints go, and the controls named by
    // DisableInViewMode are disabled, in the colours of text to be read. The data sources can still
    // be read.
    void MakeReadOnly();
    // Cells that are being edited get their text, as they would if the focus left them.
    void CommitGrids();
    // The same in a store step: false, with what a cell refused as the message.
    bool CommitGrids(CString& message);
    // What the change does is one step of undo in each grid.
    void InOneStep(const std::function<void()>& change);
    // The buttons of the data sources tell whether there is one, and which.
    void ShowSources();
    // Draws the curves of that specification dashed behind those of the page; null: none.
    void CompareCurves(const CDesignSpecification* other, const CString& name);
    // Puts the focus where the last Refuse found fault, into the offending cell of a grid.
    void FocusRefused();

    // For those who lead the user to a place on the page.
    const std::vector<CXTPReportControl*>& Grids() const { return m_grids; }
    // The data sources in the order of their buttons, which is that of the criterion's fields.
    int SourceCount() const { return static_cast<int>(m_sources.size()); }
    const CString& SourceText(int source) const;
    QWidget* SourceButton(int source) const;
    // Where the limit of that label (model/Field.h) is entered; null when the page has none.
    QWidget* LimitControl(const CString& label) const;
    // The check box by which the control can be used; null when there is none.
    QWidget* CheckOf(const QWidget* control) const;
    // Where a page has several tables: shows the one of that key.
    virtual void ShowTable(int /*key*/) {}

    // A grid in the placeholder's place that can be edited. Its first column holds the row
    // headers.
    CXTPReportControl* CreateGrid(int placeholder, int gridId, const CString& corner,
                                  int headerWidth);

protected:
    // A button that shows the book and opens a data source: `text`, which lives as long as the
    // page. The last one that is added is that of the page's grids.
    void AddSourceButton(int button, CString& text);
    // The control in which the limit of that label is entered, or chosen.
    void AddLimit(int control, const wchar_t* label) { m_limits.push_back({control, label}); }
    void DisableInViewMode(std::initializer_list<int> controls);
    void HideInViewMode(int hint) { m_hints.push_back(hint); } // beside kHint

    // The controls can be used while the check box is checked, from now on.
    void EnableByCheck(int checkBox, std::initializer_list<int> controls);
    // What the user entered there, ready to be read as a number.
    CString EnteredTextOf(int edit) const;
    // Ends a store step: false, with `text` as the message. `goThere` brings the offending place
    // into view when the focus goes to the control.
    bool Refuse(CString& message, const CString& text, int control,
                std::function<void()> goThere = {});

    // What a value of that cell must be for 确定, in the words that refuse another one.
    virtual CString RuleOf(const CMyRecordItemValue& cell, const QModelIndex& index) const;
    // Of the table that the grid shows, where the page has several; as it is laid out.
    virtual CString TableHeading() const { return {}; }

    bool OnInitDialog() override;
    void showEvent(QShowEvent* event) override;

private:
    struct Source {
        int id;
        CString* text;
    };
    struct Limit {
        int control;
        const wchar_t* label;
    };
    struct Check {
        int id;
        std::vector<int> controls;
    };
    void OpenSource(CString& text);
    CString Explain(const CXTPReportControl& grid, const QModelIndex& index) const;
    void AddCurves(CXTPReportControl& grid);
    void AddCurvesButton();
    void MakeRoomForCurves();

    // Drawn once for all pages that there are: each that is drawn anew stays in Qt's cache.
    struct Books {
        QIcon empty, filled;
    };
    static std::shared_ptr<const Books> SharedBooks();

    std::shared_ptr<const Books> m_books = SharedBooks();
    std::vector<Source> m_sources;
    std::vector<Limit> m_limits;
    std::vector<Check> m_checks;
    std::vector<CXTPReportControl*> m_grids;
    std::vector<designspec::GridCurves*> m_curves;
    QPushButton* m_curvesButton = nullptr; // null without tables
    std::vector<int> m_locked;
    std::vector<int> m_hints{kHint};
    int m_refused = 0;
    std::function<void()> m_goToRefused;
};
