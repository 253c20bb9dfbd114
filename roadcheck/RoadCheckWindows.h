// The windows in which roads are checked: as many at once as the user opens.
#pragma once

#include <QString>

namespace roadcheck {

// Opens one with that file; without a file when it is empty.
void OpenCheckWindow(const QString& file);
// Closes and deletes all of them, whatever they are doing.
void CloseCheckWindows();

} // namespace roadcheck
