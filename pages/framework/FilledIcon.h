// An icon that says that there is something behind it.
#pragma once

#include <QIcon>

// The icon with all that it covers in one colour, its lines faintly in it.
QIcon FilledIcon(const QIcon& icon);
