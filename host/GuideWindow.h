// The window of the user's guide: contents on the left, a field to look for something above.
#pragma once

#include <QWidget>

class GuideBrowser;
class QLabel;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

class GuideWindow : public QWidget {
    Q_OBJECT

public:
    explicit GuideWindow(QWidget* owner);

    // False when the file cannot be read.
    bool Load(const QString& file);
    // Goes to the section of that heading, or to the beginning when there is none.
    void GoTo(const QString& heading);
    // The heading that is shown.
    QString Section() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* MakeSearch();
    void ListContents();
    void ShowPlace();
    void Find(bool backwards);

    GuideBrowser* m_browser;
    QTreeWidget* m_contents;
    QList<QTreeWidgetItem*> m_items; // of the headings; null for those that are not listed
    QLineEdit* m_search;
    QLabel* m_found;
};
