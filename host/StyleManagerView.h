// The style manager window: groups on the left, the styles of the chosen one on the right, and
// what can be done with them.
#pragma once

#include <functional>

#include <QWidget>

#include "host/StyleActions.h"
#include "platform/vmrd/VMRDPrj/StyleManager.h"

class QLabel;
class QPushButton;
class QSplitter;
class QStackedWidget;
class QTableView;
class StyleFilterBar;
class StyleGroupTree;
class StyleListModel;
class StyleSortFilter;

class StyleManagerView : public QWidget {
    Q_OBJECT

public:
    explicit StyleManagerView(QWidget* parent = nullptr);
    ~StyleManagerView() override;

    // What stands in place of the list while nothing can be done with it, and a button for the
    // way out; an empty text when the list is to be shown.
    void SetHint(const QString& text, const QString& caption = {},
                 std::function<void()> action = {});

    // Offers the styles of the files for import, in the first group that has such. A file of the
    // project's own shows its styles in the list.
    void Offer(const QStringList& files);

    StyleGroupTree& Groups() { return *m_groups; }
    StyleCommands& Commands() { return *m_commands; }
    StyleActions& Actions() { return *m_actions; }

    // The identities of the selected styles, from top to bottom.
    StyleCommands::Selection Selected() const;
    // Selects these, and takes a filter away that hides one of them.
    void Select(const StyleCommands::Selection& ids);
    // Where nothing is selected: the default one, or else the first.
    void SelectOne();
    // The menu for the selected ones, at that place of the screen; waits until it is closed.
    void ShowContextMenu(const QPoint& position);

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* MakeRight();
    void MakeTable();
    void MakeFindKey();
    QWidget* MakeHint();
    void Connect();

    void ShowGroups();
    CStyleEditor* EditorOf(const QString& file, CArray<GUID>& ids) const;
    void ShowEditor(CStyleEditor* editor);
    void Refresh();
    void Filter();
    void GoToList();
    void SelectAll(const StyleCommands::Selection& ids, const std::optional<GUID>& current);
    std::optional<GUID> Current() const;
    GUID IdAt(const QModelIndex& shown) const;
    void ShowHint();
    void Adjust();
    void RestoreColumns();
    void SaveColumns() const;

    StyleListModel* m_list;
    int m_columns = 0; // whose layout is that of the table
    StyleSortFilter* m_shown;
    StyleCommands* m_commands;
    StyleActions* m_actions;
    StyleGroupTree* m_groups;
    QTableView* m_table;
    StyleFilterBar* m_filter;
    QStackedWidget* m_stack;
    QSplitter* m_splitter;
    QLabel* m_hint;
    QPushButton* m_hintButton;
    QString m_hostHint; // empty: the list is shown
    QString m_hostCaption;
    std::function<void()> m_hostAction;
    designspec::Connection m_refurbished;
    designspec::Connection m_groupsChanged;
    designspec::Connection m_selectWanted;
};
