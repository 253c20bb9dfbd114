// The host's file dialogs.
#pragma once

#include <QStringList>

class QWidget;

// Each returns an empty text, or none, when the user chose nothing.
QString AskFileToOpen(QWidget* owner, const QString& title, const QString& filter);
QStringList AskFilesToOpen(QWidget* owner, const QString& title, const QString& filter);
// A name without an ending gets `ending`. Does not ask about a file that is there.
QString AskFileToSave(QWidget* owner, const QString& title, const QString& filter,
                      const QString& ending, const QString& proposed);
QString AskFolder(QWidget* owner, const QString& title, const QString& start);
