// The application. What a window does without enough memory is not done, and told; the program and
// what was entered live on.
#pragma once

#include <functional>

#include <QApplication>

class HostApplication : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override;

    // What the work returns; false, with a trace line, when memory has ended in it.
    static bool Survive(const std::function<bool()>& work);
};
