// Where specifications differ, to be looked at and chosen from: a tree of groups, pages and tables
// with how much differs in each, the values of both sides in a table, those of one table as a grid
// with its speeds, a filter, and arrows that take a value, a row, a page or all to one side.
//
// How a window uses it:
//   - make one, put it into the window's layout, and call ShowTwo or ShowThree, as often as wanted:
//         auto* const view = new DifferenceView;
//         view->ShowTwo(now, version, {.left = tr("现在"), .right = tr("昨天"),
//                                      .changeable = {.left = true, .right = false}});
//     A side that cannot be changed has no arrow towards it; without any the view is to be looked
//     at only.
//   - Chosen tells of each choice, also of one that is undone; ask Choices() then or in the end
//     (DifferenceChoices.h): MadeLeft() and MadeRight() of two, Made() of three. The view writes
//     nothing.
//   - TakeAll begins with everything taken, as for what is about to be read in.
//
// Keys: Alt+Left and Alt+Right take what has the focus - the values that are selected, the cells of
// a row, what is below the page in the tree; Space turns a value from one choice to the next; Del
// takes nothing; Ctrl+Z and Ctrl+Y undo and redo; Ctrl+F goes to the filter.
#pragma once

#include <QWidget>

#include "compare/DifferenceChoices.h"

class QCheckBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace designspec {

class DifferenceCells;
class DifferenceModel;
class DifferenceTree;

class DifferenceView : public QWidget {
    Q_OBJECT

public:
    struct Two {
        QString left; // what the sides are called
        QString right;
        DifferenceChoices::Changeable changeable = {};
    };

    explicit DifferenceView(QWidget* parent = nullptr);

    void ShowTwo(const CDesignSpecification& left, const CDesignSpecification& right,
                 const Two& sides);
    void ShowThree(const CDesignSpecification& base, const CDesignSpecification& mine,
                   const CDesignSpecification& theirs);
    const DifferenceChoices& Choices() const { return m_choices; }
    void TakeAll(Choice choice);

signals:
    void Chosen();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QWidget* MakeFilterRow();
    QWidget* MakeParts();
    QWidget* MakeArrows();
    QPushButton* MakeButton(QHBoxLayout* row, int id, const QString& toolTip, const QString& keys,
                            void (DifferenceView::*act)());
    void MakeTable();

    void Begin(const DifferenceChoices& choices, const QString& left, const QString& right);
    void ShowCaptions();
    void Filter();
    bool IsShown(std::size_t value, const QString& text) const;
    void ShowValues();
    void FitColumns();
    void ShowCells();
    void GoTo(std::size_t value);
    void Renew();
    void ShowScope();

    void FindPart();
    std::vector<std::size_t> Scope() const;
    std::vector<std::size_t> SelectedValues() const;
    QString ScopeText() const;
    void Choose(const std::vector<std::size_t>& values, Choice choice);
    void ToLeft();
    void ToRight();
    void TakeBack();
    void Undo();
    void Redo();
    void Turn();

    DifferenceChoices m_choices;
    std::vector<bool> m_isShown; // by filter and check box
    DifferenceModel* m_model;
    QLineEdit* m_filter;
    QCheckBox* m_onlyDifferent;
    DifferenceTree* m_tree;
    QTableView* m_table;
    DifferenceCells* m_cells;
    QLabel* m_scope;
    QPushButton* m_toLeft = nullptr;
    QPushButton* m_toRight = nullptr;
    QPushButton* m_takeBack = nullptr;
    QPushButton* m_undo = nullptr;
    QPushButton* m_redo = nullptr;
    QWidget* m_part; // of tree, table and grid the one that had the focus last
};

} // namespace designspec
