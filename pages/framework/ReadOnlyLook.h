// How controls look that can only be read.
#pragma once

class QWidget;

// Disables the control, which keeps the colours of a text that is there to be read.
void DisableReadably(QWidget* control);
