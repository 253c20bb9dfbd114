// Windows that wait for the user, seen by somebody who answers in his place: pictures, tests.
#pragma once

#include <functional>
#include <vector>

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include "base/Export.h"

namespace designspec {

// Sees each dialog, message box and menu that opens while it lives, and is the newest watch; those
// that are open already are not its matter, nor are sub-menus of a menu that it has seen.
class AFX_EXT_CLASS ModalWatch : public QObject {
public:
    using Came = std::function<void(QWidget* window)>;

    // `came` is called once for each window, which is shown by then. It may open others: they come
    // while it waits in them.
    explicit ModalWatch(Came came);
    ~ModalWatch() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Look();
    void Remember(QWidget* window);
    bool IsKnown(const QWidget* window) const;

    Came m_came;
    ModalWatch* m_before;
    QTimer m_timer;
    std::vector<QPointer<QWidget>> m_open;
};

using ModalVisit = std::function<void(QWidget* window)>;

// Runs `open`, which shows windows one after the other and waits in each. Each gets the next of the
// visits once it is shown and is closed after it, as Esc does; one for which there is no visit left
// is closed at once. A visit may close its window itself, and may open others with this function.
// The number of visits that were paid.
AFX_EXT_API size_t VisitModals(const std::function<void()>& open,
                               const std::vector<ModalVisit>& visits);

} // namespace designspec
