// What the style manager can do with the styles of one library.
#pragma once

#include <optional>
#include <span>

#include "base/Export.h"
#include "base/Problem.h"
#include "base/Signal.h"
#include "platform/mfc/String.h"
#include "platform/vmrd/VMRDEnv/Styles.h"
#include "platform/vmrd/VMRDPrj/StyleCommand.h"

class CMenu;

namespace designspec {

// What a style of a file would change in the library's one of its identity, for people.
struct StyleChanges {
    CString inOneLine; // empty: nothing
    CStringArray all;  // a line for each value
};

} // namespace designspec

class AFX_EXT_CLASS CStyleEditor : public CObject {
    DECLARE_DYNAMIC(CStyleEditor)

public:
    CStyleEditor() = default;
    CStyleEditor(const CStyleEditor&) = delete;
    CStyleEditor& operator=(const CStyleEditor&) = delete;

    // The library; null when there is none now. It is not the editor's.
    virtual CStyles* GetStyles() const = 0;
    // Lets the user make a style, as a copy of `from` unless that is null. The new style, which
    // the library holds, or null when none was made.
    virtual CStyle* New(CStyle* from) = 0;
    // Takes the style out of its library. False when it is not in there.
    virtual bool Delete(CStyle* style) = 0;
    // Lets the user change the style, its name too; an empty name is refused.
    virtual void Edit(CStyle* style) = 0;
    // Makes it the library's default one; one that is not in the library changes nothing.
    virtual void SetAsDefaultStyle(CStyle* style);
    // May change the captions of the style manager's commands. True when it changed something.
    virtual bool AdjustContextMenu(CMenu* menu);

    // What the style manager offers.
    virtual bool EnableNew() const { return true; }
    virtual bool EnableEdit() const { return true; }
    virtual bool EnableNewFrom() const { return true; }
    virtual bool EnableAsDefaultStyle() const { return true; }
    virtual bool EnableDel() const { return true; }
    virtual bool EnableExport() const { return true; }

    // Writes the named styles, or all when no name is given, into a file.
    virtual bool Export(const wchar_t* path, const CStringArray& names);
    // A command of the context menu that the style manager does not know. True when it was one of
    // the editor's.
    virtual bool OnCommand(unsigned command, CStyle* style);

    // Reads the library anew. Its default style is the one that its files name now, or none.
    void Refurbish();

    // For every editor there will be: one wants the style of that identity to be selected where
    // styles are listed.
    static designspec::Signal<const GUID&>& SelectWanted();

    // Shows the style to the user without letting him change it.
    virtual void View(CStyle* style);
    virtual bool EnableView() const { return false; }

    // What the style manager offers besides its own commands, in this order.
    virtual std::span<const designspec::EditorCommand> OwnCommands() const { return {}; }
    // Does one of them with the selected styles. What is to be told of it afterwards; often
    // nothing.
    virtual CString RunOwn(unsigned command, const CArray<GUID>& selected);

    // What the style manager tells of each style besides the name: a text for each of the columns.
    virtual std::span<const designspec::StyleColumn> Columns() const { return {}; }
    virtual CStringArray ColumnTexts(const CStyle&) const { return {}; }
    // Looks for words in the style; some of them may be in `told`, its name and those texts. Where
    // it found them, for people; nothing where one of them is nowhere. Called for every style at
    // each key, and once before the first.
    virtual std::optional<CString> Find(const CStyle&, const CString& told, const CString& words);

    // Takes styles of a file into the library, as CStyles::ImportAndSave.
    virtual designspec::StyleImport Import(const CString& path, const CStringArray& names,
                                           bool overwrite);

    // What is imported between these two can be taken back as one; `text` tells of it. What an
    // editor edits and its own commands save it takes down by itself.
    virtual void BeginUndo() {}
    virtual void EndUndo(const CString&) {}

    // For each of the file's styles of those identities; nothing for one that the library has not,
    // and where the editor cannot tell.
    virtual std::vector<std::optional<designspec::StyleChanges>>
    ChangesFrom(const CString& path, const CArray<GUID>& ids);

    // What the last command saved, when it can be taken back; else empty.
    virtual CString UndoText() const { return {}; }
    // Takes it back. What is to be told of it; empty when it was not.
    virtual CString Undo() { return {}; }

    // Writes a report of styles into a file, of the kind that its ending tells; with the values of
    // another one beside those that differ from them, unless that is null. False, with the cause
    // among the problems, when it was not written or there are no reports.
    virtual bool WriteReport(const CString& path, const CArray<GUID>& styles,
                             const GUID* comparedWith, designspec::Problems& problems);

    // Shows a style that was deleted, and what it was before.
    virtual bool EnableViewDeleted() const { return false; }
    virtual void ViewDeleted(const GUID&) {}
};
