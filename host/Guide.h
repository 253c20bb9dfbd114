// Opens the user's guide, with F1 at the section about the window that one is in.
#pragma once

#include <QObject>
#include <QPointer>

#include "host/GuideWindow.h"

class Guide : public QObject {
    Q_OBJECT

public:
    // Its key is one of every window of the program, as long as this lives. The guide's window
    // belongs to `frame`, or to the dialog that waits while it is open.
    explicit Guide(QWidget* frame);

    // Where it is installed, or what stands for that in the folder that the program was built in.
    static QString File();
    // With a message when it is not there.
    void Show(const QString& heading);
    GuideWindow* Window() const { return m_window; }

signals:
    void Missing(const QString& file);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BelongTo(QWidget* owner);

    QWidget* m_frame;
    QPointer<QWidget> m_owner; // of the window
    QPointer<GuideWindow> m_window;
};
