// The search field above the tree of pages: as one types, what is found takes the tree's place.
//
// Ctrl+F goes to the field, Down to what is found; what is selected there is shown on its page, and
// Enter or a click goes to it. Esc empties the field and returns to where the focus was.
#pragma once

#include <functional>
#include <optional>

#include <QObject>
#include <QPointer>

#include "search/SpecificationIndex.h"

class QLabel;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;
class QWidget;

class CSearchPane : public QObject {
public:
    struct Controls {
        QLineEdit* field;
        QTreeWidget* found;
        QLabel* note; // above what is found
        QWidget* tree;
    };
    // What is to be searched, as it is now.
    using Index = std::function<designspec::SpecificationIndex()>;
    // Shows the place of a hit; with `enter` the focus goes there.
    using GoTo = std::function<void(const designspec::SearchHit& hit, bool enter)>;

    // Lives as long as `parent`, which is the controls' window.
    CSearchPane(const Controls& controls, Index index, GoTo goTo, QWidget* parent);

    void Begin();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool OnKeyInField(int key);
    bool OnKeyInFound(int key);
    void OnFocusChanged(QWidget* from, QWidget* to);
    bool IsOwn(const QWidget* widget) const;
    void Search();
    void Fill();
    void AddHit(const designspec::SearchHit& hit, int number);
    void SayHowMany();
    const designspec::SearchHit* HitOf(const QTreeWidgetItem* item) const;
    void Go(const QTreeWidgetItem* item, bool enter);
    void Clear();

    Controls m_controls;
    Index m_makeIndex;
    GoTo m_goTo;
    std::optional<designspec::SpecificationIndex> m_index; // while the pages stay as they are
    std::vector<designspec::SearchHit> m_hits;
    bool m_isMore = false;
    QPointer<QWidget> m_back; // had the focus before
};
