#include "host/StyleCommands.h"

#include <algorithm>

#include <QDir>
#include <QWidget>

#include "base/Format.h"
#include "host/DeletedStylesDialog.h"
#include "host/ImportDialog.h"
#include "platform/mfc/FileChoice.h"
#include "platform/mfc/MessageBox.h"
#include "platform/mfc/QtText.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

using namespace designspec;

namespace {

const QString kStyleFiles = QStringLiteral("*.hds");
const QString kFilter = QObject::tr("样式文件 (*.hds);;所有文件 (*)");

} // namespace

StyleCommands::StyleCommands(QWidget* window) : QObject(window), m_window(window) {}

CStyle* StyleCommands::Only(const Selection& selected) const
{
    const CStyles* const styles = Styles();
    return styles && selected.size() == 1 ? styles->Item(selected.front()) : nullptr;
}

bool StyleCommands::IsDefault(const CStyle* style) const
{
    return style && Styles()->DefaultItem() == style;
}

bool StyleCommands::IsEnabled(unsigned command, const Selection& selected) const
{
    const CStyles* const styles = Styles();
    if (!styles) return false;
    const CStyle* const only = Only(selected);
    switch (command) {
    case kCommandNewStyle:
        return m_editor->EnableNew();
    case kCommandNewStyleFrom:
        return only && m_editor->EnableNewFrom();
    case kCommandEditStyle:
    case kCommandRenameStyle:
        return only && m_editor->EnableEdit();
    case kCommandViewStyle:
        return only && m_editor->EnableView();
    case kCommandDeleteStyle:
        return !selected.empty() && m_editor->EnableDel();
    case kCommandSetAsDefaultStyle:
        return only && !IsDefault(only) && m_editor->EnableAsDefaultStyle();
    case kCommandExportStyles:
        return styles->Count() > 0 && m_editor->EnableExport();
    default:
        return IsOwnEnabled(command, selected.size());
    }
}

const EditorCommand* StyleCommands::FindOwn(unsigned command) const
{
    const auto own = m_editor->OwnCommands();
    const auto found = std::find_if(own.begin(), own.end(),
                                    [&](const EditorCommand& one) { return one.id == command; });
    return found == own.end() ? nullptr : &*found;
}

bool StyleCommands::IsOwnEnabled(unsigned command, size_t selected) const
{
    const EditorCommand* const own = FindOwn(command);
    return !own || (selected >= own->fewest && selected <= own->most);
}

void StyleCommands::Run(unsigned command, const Selection& selected)
{
    if (!IsEnabled(command, selected)) return;
    emit Begun();
    switch (command) {
    case kCommandNewStyle:
        return New(nullptr);
    case kCommandNewStyleFrom:
        return New(Only(selected));
    case kCommandEditStyle:
    case kCommandRenameStyle: // the name is a field of the editor's dialog
        m_editor->Edit(Only(selected));
        emit Listed();
        return OfferUndo();
    case kCommandViewStyle:
        return m_editor->View(Only(selected));
    case kCommandDeleteStyle:
        return Delete(selected);
    case kCommandSetAsDefaultStyle:
        m_editor->SetAsDefaultStyle(Only(selected));
        break;
    case kCommandImportStyles:
        return ImportFiles();
    case kCommandImportProject:
        return ImportProject();
    case kCommandExportStyles:
        return Export(selected);
    case kCommandSaveAsTemplate:
        return SaveAsTemplate();
    case kCommandDeletedStyles:
        return ShowDeleted();
    case kCommandReload:
        return emit ReloadWanted();
    default:
        if (FindOwn(command)) return RunOwn(command, selected);
        m_editor->OnCommand(command, Only(selected));
        break;
    }
    emit Listed();
}

void StyleCommands::RunOwn(unsigned command, const Selection& selected)
{
    const CString note = m_editor->RunOwn(command, selected);
    emit Listed();
    TellDone(ToQString(note));
}

// What can be taken back is told with the way to do so.
void StyleCommands::TellDone(const QString& note)
{
    if (!m_editor->UndoText().empty()) return OfferUndo();
    if (!note.isEmpty()) emit Note(note);
}

void StyleCommands::OfferUndo()
{
    if (const CString text = m_editor->UndoText(); !text.empty()) emit Undoable(ToQString(text));
}

void StyleCommands::Undo()
{
    if (!m_editor) return;
    emit Begun();
    const CString note = m_editor->Undo();
    emit Listed();
    if (!note.empty()) emit Note(ToQString(note));
}

void StyleCommands::New(CStyle* from)
{
    const CStyle* const made = m_editor->New(from);
    emit Listed();
    if (made) emit Made({made->ID()});
}

bool StyleCommands::ConfirmDelete(const Selection& selected) const
{
    const CStyle* const only = Only(selected);
    const CString question = only ? Format(L"要删除“%s”吗?", only->Name())
                                  : Format(L"要删除选中的 %d 个样式吗?", selected.size());
    return MessageBox(m_window, question + L"\n\n删除后可以用“已删除…”恢复。", L"删除",
                      MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) == IDYES;
}

void StyleCommands::Delete(const Selection& selected)
{
    if (!ConfirmDelete(selected)) return;
    CStyles* const styles = Styles();
    const CStyle* const standard = styles->DefaultItem();
    const std::optional<GUID> before = standard ? std::optional(standard->ID()) : std::nullopt;
    int deleted = 0;
    QStringList left;
    for (const GUID& id : selected) {
        CStyle* const style = styles->Item(id);
        if (!style) continue;
        const QString name = ToQString(style->Name());
        Problems problems;
        if (m_editor->Delete(style) && styles->Files().SetAside(id, problems))
            ++deleted;
        else
            left << name;
        TraceProblems(problems);
    }
    // What could not be moved away would be read again the next time: the list tells so now.
    if (!left.isEmpty()) m_editor->Refurbish();
    if (deleted > 0) emit Note(tr("已删除 %1 个样式, 可以用“已删除…”恢复。").arg(deleted));
    if (!left.isEmpty()) emit Failed(tr("没有删除: %1。它的文件无法移走。").arg(left.join(u'、')));
    KeepDefault(before);
    emit Listed();
}

// The library knows its default style by index, which a deletion before it moves.
void StyleCommands::KeepDefault(const std::optional<GUID>& before)
{
    CStyles* const styles = Styles();
    if (!before || styles->CStyles::SetDefaultItem(*before)) return;
    styles->CStyles::SetDefaultItem(-1);
    emit Note(tr("默认样式已删除, 请另设一个默认样式。"));
}

// Those of the files that hold styles; of the others it is told why they do not count.
std::vector<ImportFile> StyleCommands::ReadFiles(const QStringList& paths)
{
    const CStyles* const styles = Styles();
    std::vector<ImportFile> files;
    for (const QString& path : paths) {
        ImportFile file{path, {}, {}, {}};
        if (!styles->StyleNames(FromQString(path).c_str(), file.names, file.ids))
            emit Failed(tr("无法导入: %1").arg(path));
        else if (file.names.empty())
            emit Failed(tr("文件中没有“%1”的样式: %2").arg(ToQString(styles->Name()), path));
        else {
            file.changes = m_editor->ChangesFrom(FromQString(path), file.ids);
            files.push_back(std::move(file));
        }
    }
    return files;
}

void StyleCommands::ImportFiles()
{
    Import(AskFilesToOpen(m_window, tr("导入样式 (可以选择多个文件)"), kFilter));
}

// The folder of the styles themselves is chosen as easily as the project's.
void StyleCommands::ImportProject()
{
    const QString chosen = AskFolder(m_window, tr("从项目导入样式: 选择项目文件夹"));
    if (chosen.isEmpty()) return;
    QDir folder(chosen);
    folder.cd(ToQString(kStylesFolder)); // stays where it is when there is none
    QStringList paths;
    for (const QFileInfo& file : folder.entryInfoList({kStyleFiles}, QDir::Files, QDir::Name))
        paths << file.absoluteFilePath();
    if (paths.isEmpty()) return emit Failed(tr("文件夹中没有样式文件: %1").arg(chosen));
    Import(paths);
}

void StyleCommands::ImportFrom(const QStringList& paths)
{
    if (!Styles()) return;
    emit Begun();
    Import(paths);
}

void StyleCommands::Import(const QStringList& paths)
{
    const auto files = ReadFiles(paths);
    if (files.empty()) return;
    ImportDialog dialog(*Styles(), files, m_window);
    if (dialog.exec() != QDialog::Accepted) return;
    m_editor->BeginUndo();
    StyleImport all;
    QStringList unread;
    for (size_t i = 0; i < files.size(); ++i) {
        const auto names = dialog.Names(static_cast<int>(i));
        if (!names) continue;
        const StyleImport one =
            m_editor->Import(FromQString(files[i].path), *names, dialog.Overwrite());
        if (!one.read) unread << files[i].path;
        all.added += one.added;
        all.overwritten += one.overwritten;
        all.failed += one.failed;
        all.ids.insert(all.ids.end(), one.ids.begin(), one.ids.end());
    }
    const QString told = tr("已导入: 新增 %1 个, 覆盖 %2 个。").arg(all.added).arg(all.overwritten);
    m_editor->EndUndo(FromQString(told));
    emit Listed();
    emit Made(all.ids);
    if (!unread.isEmpty())
        emit Failed(tr("无法导入: %1").arg(unread.join(u'、')));
    else if (all.failed > 0)
        emit Failed(tr("已导入, 但有 %1 个样式没有保存到库中。").arg(all.failed));
    else
        TellDone(told);
}

void StyleCommands::Export(const Selection& selected)
{
    const CStyles* const styles = Styles();
    CStringArray names;
    for (const GUID& id : selected)
        if (const CStyle* const style = styles->Item(id)) names.push_back(style->Name());
    const CString proposed = names.size() == 1 ? names.front() : styles->Name();
    const QString path = AskFileToSave(m_window, tr("导出样式 (已有的文件保留其他样式)"), kFilter,
                                       QStringLiteral("hds"), ToQString(proposed), IfThere::TakeIt);
    if (path.isEmpty()) return;
    if (!m_editor->Export(FromQString(path).c_str(), names))
        return emit Failed(tr("无法导出: %1").arg(path));
    emit Note(tr("已导出: %1").arg(path));
}

void StyleCommands::SaveAsTemplate()
{
    const QString folder = AskFolder(m_window, tr("另存为模板"), QDir::homePath());
    if (folder.isEmpty()) return;
    if (!Styles()->SaveAsTemplate(FromQString(folder).c_str()))
        return emit Failed(tr("模板没有完整保存到: %1").arg(folder));
    emit Note(tr("模板已保存到: %1").arg(folder));
}

void StyleCommands::ShowDeleted()
{
    DeletedStylesDialog dialog(*m_editor, m_window);
    dialog.exec();
    emit Listed();
    emit Made(dialog.BroughtBack());
}
