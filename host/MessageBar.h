// One message below the list, with one thing to do about it: never in the way, gone when closed.
#pragma once

#include <functional>

#include <QFrame>

class QLabel;
class QPushButton;

class MessageBar : public QFrame {
    Q_OBJECT

public:
    enum class Kind { Note, Change, Error };

    MessageBar(Kind kind, int controlId, QWidget* parent = nullptr);

    using Action = std::function<void()>;
    // Shows the text in place of the one before; the button has the caption, unless that is
    // empty. The bar goes before the action is done.
    void Show(const QString& text, const QString& caption = {}, Action action = {});
    QString Text() const;

protected:
    void changeEvent(QEvent* event) override;

private:
    void Paint();

    Kind m_kind;
    QLabel* m_icon;
    QLabel* m_text;
    QPushButton* m_button;
    Action m_action;
};
