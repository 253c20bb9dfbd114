#include "platform/mfc/FileChoice.h"

#include <QFileDialog>
#include <QRegularExpression>

namespace designspec {

namespace {

QString Run(QFileDialog& dialog)
{
    if (dialog.exec() != QDialog::Accepted) return {};
    return dialog.selectedFiles().value(0);
}

} // namespace

QString AskFileToOpen(QWidget* owner, const QString& title, const QString& filter)
{
    QFileDialog dialog(owner, title, {}, filter);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return Run(dialog);
}

QStringList AskFilesToOpen(QWidget* owner, const QString& title, const QString& filter)
{
    QFileDialog dialog(owner, title, {}, filter);
    dialog.setFileMode(QFileDialog::ExistingFiles);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles() : QStringList();
}

QString AskFileToSave(QWidget* owner, const QString& title, const QString& filter,
                      const QString& ending, const QString& proposed, IfThere ifThere)
{
    QFileDialog dialog(owner, title, {}, filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, ifThere == IfThere::TakeIt);
    dialog.setDefaultSuffix(ending);
    if (filter.contains(QStringLiteral(";;"))) TakeEndingOfFilter(dialog);
    dialog.selectFile(QString(proposed).replace(u'/', u'-') + u'.' + ending);
    const QString path = Run(dialog);
    // Of a name like 规范1.5 the part behind the point is no ending.
    static const QRegularExpression kHasEnding(QStringLiteral("\\.[A-Za-z][A-Za-z0-9]*$"));
    return path.isEmpty() || path.contains(kHasEnding) ? path
                                                       : path + u'.' + dialog.defaultSuffix();
}

void TakeEndingOfFilter(QFileDialog& dialog)
{
    const auto take = [&dialog](const QString& filter) {
        dialog.setDefaultSuffix(filter.section(QStringLiteral("*."), 1).chopped(1));
    };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, take);
    take(dialog.selectedNameFilter());
}

QString AskFolder(QWidget* owner, const QString& title, const QString& start)
{
    QFileDialog dialog(owner, title, start);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    return Run(dialog);
}

} // namespace designspec
