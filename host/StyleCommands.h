// What the style manager's commands do with the styles of one editor.
#pragma once

#include <optional>

#include <QObject>

#include "platform/vmrd/VMRDPrj/StyleEditor.h"

class QWidget;
struct ImportFile;

class StyleCommands : public QObject {
    Q_OBJECT

public:
    using Selection = std::vector<GUID>;

    // Dialogs belong to `window`.
    explicit StyleCommands(QWidget* window);

    // Null: no command can be given.
    void SetEditor(CStyleEditor* editor) { m_editor = editor; }
    CStyleEditor* Editor() const { return m_editor; }

    // Whether the command can be given for that selection.
    bool IsEnabled(unsigned command, const Selection& selected) const;
    // Does it; one that is not the host's own goes to the editor. Does nothing when it cannot be
    // given.
    void Run(unsigned command, const Selection& selected);

    // As kCommandImportStyles, with the files chosen already.
    void ImportFrom(const QStringList& paths);
    // Takes back what Undoable told of.
    void Undo();

signals:
    void Undoable(const QString& text); // what was saved, and can be taken back
    void Begun();                       // before a command is done
    void Made(const Selection& styles); // new in the list, to be selected
    void Note(const QString& text);
    void Failed(const QString& text);
    void ReloadWanted();
    void Listed(); // the library may show another list or default now

private:
    CStyles* Styles() const { return m_editor ? m_editor->GetStyles() : nullptr; }
    CStyle* Only(const Selection& selected) const;
    bool IsDefault(const CStyle* style) const;

    const designspec::EditorCommand* FindOwn(unsigned command) const;
    bool IsOwnEnabled(unsigned command, size_t selected) const;
    void RunOwn(unsigned command, const Selection& selected);
    void TellDone(const QString& note);
    void OfferUndo();
    void New(CStyle* from);
    void Delete(const Selection& selected);
    bool ConfirmDelete(const Selection& selected) const;
    void KeepDefault(const std::optional<GUID>& before);
    std::vector<ImportFile> ReadFiles(const QStringList& paths);
    void ImportFiles();
    void ImportProject();
    void Import(const QStringList& paths);
    void Export(const Selection& selected);
    void SaveAsTemplate();
    void ShowDeleted();

    QWidget* m_window;
    CStyleEditor* m_editor = nullptr;
};
