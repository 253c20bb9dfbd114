// Marks the pages whose values are still the built-in ones, as they are edited: in the tree, and in
// a line above the page that is shown.
#pragma once

#include <vector>

#include <QObject>

class CDSPage;
class QLabel;
class QTimer;
class QTreeWidgetItem;

class CBuiltInMarks : public QObject {
public:
    struct Page {
        CDSPage* window;
        QTreeWidgetItem* item; // of a tree with a second column for the mark
    };

    // Lives as long as `parent`, which is the window of all of them.
    CBuiltInMarks(std::vector<Page> pages, QLabel* line, QWidget* parent);

    // That page is shown.
    void Show(const CDSPage* page);
    // The pages hold something else now.
    void Update();

private:
    void Watch(const CDSPage& page);
    void WriteLine();

    std::vector<Page> m_pages;
    QLabel* m_line;
    QTimer* m_soon; // when all that follows from an edit has happened
    const CDSPage* m_shown = nullptr;
};
