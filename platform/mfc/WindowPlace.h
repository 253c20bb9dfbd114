// Where a dialog opens and how large: over its owner, as the user left it the last time.
#pragma once

#include <QMargins>
#include <QObject>
#include <QPoint>
#include <QPointer>

#include "base/Export.h"

class QScreen;
class QWidget;

namespace designspec {

// Size and place are kept in the application's settings when the window is hidden. The place is
// kept as the way from the owner's middle: a dialog follows its owner to another screen. Whatever
// was kept, the window is never larger than the screen's free area, nor outside of it.
class AFX_EXT_CLASS WindowPlace : public QObject {
public:
    // Looks after `window`, which owns it, unless that is a child when it is shown. `name` stands
    // for it in the settings. Its owner is its parent unless another is given.
    WindowPlace(QWidget* window, const QString& name, QWidget* owner = nullptr);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Restore();
    void Keep() const;
    const QWidget* Owner() const;
    QScreen* Screen() const;
    QPoint MiddleOfOwner() const;
    QMargins Frame() const;

    QWidget* m_window;
    QPointer<QWidget> m_owner;
    QString m_sizeKey;
    QString m_offsetKey;
};

} // namespace designspec
