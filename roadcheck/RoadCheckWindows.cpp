#include "roadcheck/RoadCheckWindows.h"

#include <algorithm>
#include <vector>

#include <QPointer>

#include "roadcheck/RoadCheckWindow.h"

namespace roadcheck {

namespace {

std::vector<QPointer<RoadCheckWindow>>& Windows()
{
    static std::vector<QPointer<RoadCheckWindow>> windows;
    std::erase_if(windows, [](const auto& one) { return one.isNull(); });
    return windows;
}

// One that opens where another is stands a little beside it.
void StepAside(QWidget& window)
{
    const QPoint step(window.fontMetrics().height() * 2, window.fontMetrics().height() * 2);
    const auto isTaken = [&window](const auto& other) {
        return other != &window && other->isVisible() && other->pos() == window.pos();
    };
    const auto& all = Windows();
    while (std::any_of(all.begin(), all.end(), isTaken))
        window.move(window.pos() + step);
}

} // namespace

void OpenCheckWindow(const QString& file)
{
    auto* const window = new RoadCheckWindow;
    window->setAttribute(Qt::WA_DeleteOnClose);
    Windows().emplace_back(window);
    window->show();
    StepAside(*window);
    window->activateWindow();
    if (!file.isEmpty()) window->Open(file);
}

// Each at once: what is deleted later would find its code gone.
void CloseCheckWindows()
{
    for (const auto& window : std::vector(Windows())) {
        if (!window) continue;
        window->setAttribute(Qt::WA_DeleteOnClose, false);
        window->close();
        delete window;
    }
    Windows().clear();
}

} // namespace roadcheck
