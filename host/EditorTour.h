// Goes through an editor's windows with one style, as a user would, and shows each for a picture.
#pragma once

#include <functional>
#include <set>

#include <QString>
#include <QStringList>

#include "platform/mfc/ModalWatch.h"

class CStyle;
class CStyleEditor;
class QAbstractItemView;
class QDialog;
class QTreeWidget;

class EditorTour {
public:
    // Shows a window, with a name that can be a file's.
    using Picture = std::function<void(QWidget* window, const QString& name)>;

    EditorTour(CStyleEditor& editor, Picture picture);

    // The editing window, each page of its tree with the menus and input dialogs of its tables,
    // each kind once; the message about an empty name; the window for looking only; what comes
    // first when a style is to be made, and what the editor's own commands open. Pages are named by
    // the items of the tree, with "-" between, what they open by its title; where
    // that asks for a file first, the first fitting one of the project's folder is chosen.
    // Everything is cancelled.
    void Run(CStyle* style);
    // The window about a change of others: `theirs`, a file of styles, stands in the place of the
    // library's file of its name while the style is edited. In the end all is as it was. Shows
    // nothing when there is no such file.
    void ShowOthersChange(CStyle* style, const QString& theirs);

private:
    void ShowOwnCommands(const CStyle* style);
    void ShowEditing(QDialog* dialog, const QString& name);
    void ShowPages(QDialog* dialog, QTreeWidget* tree);
    void ShowPage(QDialog* dialog, const QString& page);
    void ShowSwitched(QDialog* dialog, const QString& page);
    void ShowMenu(QAbstractItemView* table, const QString& page);
    void ShowInputDialogs(QAbstractItemView* table, const QStringList& items);
    void ShowSource(QDialog* dialog);
    void ShowSearch(QDialog* dialog);
    void ShowAsking(QDialog* dialog);
    void ShowMessage(QDialog* dialog, const QString& name);

    // Pictures the window unless there is one of that name.
    void Show(QWidget* window, const QString& name);
    designspec::ModalVisit ShowAs(const QString& name);
    designspec::ModalVisit ShowByTitle();
    designspec::ModalVisit AnswerOrShow();

    CStyleEditor& m_editor;
    Picture m_picture;
    std::set<QString> m_seen; // names of pictures, and items of menus
};
