#include "platform/arx/Frame.h"

#include <QPointer>
#include <QWidget>

namespace {

QPointer<QWidget>& Frame()
{
    static QPointer<QWidget> frame;
    return frame;
}

} // namespace

QWidget* acedGetAcadFrame()
{
    return Frame();
}

void designspec::SetFrame(QWidget* frame)
{
    Frame() = frame;
}
