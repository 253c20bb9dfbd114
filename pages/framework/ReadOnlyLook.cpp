#include "pages/framework/ReadOnlyLook.h"

#include <QPalette>
#include <QWidget>

void DisableReadably(QWidget* control)
{
    if (!control) return;
    QPalette palette = control->palette();
    for (const QPalette::ColorRole role :
         {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, palette.color(QPalette::Active, role));
    control->setPalette(palette);
    control->setEnabled(false);
}
