// What the list of styles is searched by: a text, and of columns that sort the styles into groups
// one of those.
#pragma once

#include <vector>

#include <QWidget>

class CStyleEditor;
class QComboBox;
class QLabel;
class QLineEdit;
class StyleListModel;

class StyleFilterBar : public QWidget {
    Q_OBJECT

public:
    explicit StyleFilterBar(QWidget* parent = nullptr);

    // Puts the cursor into the text.
    void Begin();
    void Clear();
    // True when every style is shown.
    bool IsEmpty() const;
    QString Text() const;

    // Which rows of the list are shown; says how many. Words are found in what the list tells of a
    // style, and where the editor finds them. Tells the list where.
    std::vector<bool> Accept(StyleListModel& list, CStyleEditor* editor);

    // Asks the editor once, so that it has ready what it needs before the first key.
    static void Prepare(const StyleListModel& list, CStyleEditor* editor);

signals:
    void Entered(); // somebody is about to type
    void Changed();
    void Left(); // by a key: the list is to be used

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ListGroups(const StyleListModel& list);
    bool IsOfGroup(const StyleListModel& list, int row) const;

    QLineEdit* m_text;
    QComboBox* m_group;
    QLabel* m_count;
};
