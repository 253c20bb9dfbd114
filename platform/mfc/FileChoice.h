// Asks for files and folders.
#pragma once

#include <QStringList>

#include "base/Export.h"

class QFileDialog;
class QWidget;

namespace designspec {

// Each returns an empty text, or none, when the user chose nothing.
AFX_EXT_API QString AskFileToOpen(QWidget* owner, const QString& title, const QString& filter);
AFX_EXT_API QStringList AskFilesToOpen(QWidget* owner, const QString& title, const QString& filter);
enum class IfThere { Ask, TakeIt };
// A name without an ending gets `ending`. Whether it asks before a file that is there is taken.
AFX_EXT_API QString AskFileToSave(QWidget* owner, const QString& title, const QString& filter,
                                  const QString& ending, const QString& proposed, IfThere ifThere);
// A name without an ending gets that of the filter that is chosen, "图片 (*.png)".
AFX_EXT_API void TakeEndingOfFilter(QFileDialog& dialog);
AFX_EXT_API QString AskFolder(QWidget* owner, const QString& title, const QString& start = {});

} // namespace designspec
