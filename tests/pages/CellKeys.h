// What keys and the clipboard do with a cell that shows more than a plain number.
#pragma once

#include <optional>

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTest>

#include "base/Text.h"
#include "platform/mfc/QtText.h"
#include "platform/mfc/String.h"
#include "tests/pages/PageActions.h"

using namespace designspec;

inline void PutOnClipboard(const CString& text)
{
    QApplication::clipboard()->setText(ToQString(text));
}

inline std::string ClipboardText()
{
    return QApplication::clipboard()->text().toStdString();
}

// Makes the cell the current one, without an editor.
inline void GoToCell(CXTPReportControl* grid, int row, int column)
{
    ClickCell(grid, row, column);
    PressKey(grid, Qt::Key_Escape);
}

inline void PasteAt(CXTPReportControl* grid, int row, int column, const CString& text)
{
    PutOnClipboard(text);
    GoToCell(grid, row, column);
    PressKey(grid, Qt::Key_V, Qt::ControlModifier);
}

// The text in the open editor, "-" when none is open.
inline std::string EditorText(const CXTPReportControl* grid)
{
    for (const auto* edit : grid->viewport()->findChildren<QLineEdit*>())
        if (edit->isVisible()) return edit->text().toStdString();
    return "-";
}

// Tries each key on a grid's first row, whose first two cells are filled and different.
class CellKeys {
public:
    explicit CellKeys(CXTPReportControl* grid) : m_grid(grid), m_first(Text(1)), m_second(Text(2))
    {
        EXPECT_NE(m_first, "");
        EXPECT_NE(m_first, m_second);
    }

    void ExpectF2OffersTheText()
    {
        GoToCell(m_grid, 0, 1);
        PressKey(m_grid, Qt::Key_F2);
        EXPECT_EQ(EditorText(m_grid), m_first);
        PressKey(m_grid, Qt::Key_Escape);
        EXPECT_EQ(EditorText(m_grid), "-");
        PressKey(m_grid, Qt::Key_F2);
        PressKey(m_grid, Qt::Key_Tab);
        EXPECT_EQ(EditorText(m_grid), m_second);
        PressKey(m_grid, Qt::Key_Escape);
        ExpectTexts(m_first, m_second);
        EXPECT_FALSE(m_grid->GetUndo().CanUndo());
    }

    // `typed` ends in that text, by Tab and by Enter.
    void ExpectTyped(const CString& typed, const std::string& shown)
    {
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Return}) {
            EditCell(m_grid, 0, 1, typed, key);
            PressKey(m_grid, Qt::Key_Escape);
            ExpectTexts(shown, m_second);
            Undo();
        }
    }

    void ExpectCopied()
    {
        GoToCell(m_grid, 0, 1);
        PressKey(m_grid, Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(ClipboardText(), m_first);
        GoToCell(m_grid, 0, 2);
        PressKey(m_grid, Qt::Key_V, Qt::ControlModifier);
        ExpectTexts(m_first, m_first);
        Undo();
        PressKey(m_grid, Qt::Key_Y, Qt::ControlModifier);
        ExpectTexts(m_first, m_first);
        Undo();
    }

    // The same with open editors, as a click leaves them.
    void ExpectCopiedFromEditorToEditor()
    {
        ClickCell(m_grid, 0, 1);
        PressKey(m_grid, Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(ClipboardText(), m_first);
        ClickCell(m_grid, 0, 2);
        PressKey(m_grid, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(EditorText(m_grid), m_first);
        PressKey(m_grid, Qt::Key_Return);
        PressKey(m_grid, Qt::Key_Escape);
        ExpectTexts(m_first, m_first);
        Undo();
    }

    void ExpectCutAndDeleted()
    {
        GoToCell(m_grid, 0, 1);
        PressKey(m_grid, Qt::Key_X, Qt::ControlModifier);
        EXPECT_EQ(ClipboardText(), m_first);
        ExpectTexts("", m_second);
        PressKey(m_grid, Qt::Key_V, Qt::ControlModifier);
        ExpectTexts(m_first, m_second);
        PressKey(m_grid, Qt::Key_Delete);
        ExpectTexts("", m_second);
        for (int i = 0; i < 3; ++i)
            PressKey(m_grid, Qt::Key_Z, Qt::ControlModifier);
        ExpectTexts(m_first, m_second);
        EXPECT_FALSE(m_grid->GetUndo().CanUndo());
    }

    // A bad text empties the cell, with that message if there is one; one step takes it back.
    void ExpectEmptiedBy(const CString& bad, const wchar_t* message = nullptr)
    {
        for (const bool typed : {true, false}) {
            {
                std::optional<ExpectMessage> box;
                if (message) box.emplace(message);
                if (typed)
                    EditCell(m_grid, 0, 1, bad);
                else
                    PasteAt(m_grid, 0, 1, bad);
            }
            Reactivate();
            PressKey(m_grid, Qt::Key_Escape);
            ExpectTexts("", m_second);
            Undo();
        }
    }

private:
    std::string Text(int column) const { return ToUtf8(CellText(m_grid, 0, column)); }
    void ExpectTexts(const std::string& first, const std::string& second) const
    {
        EXPECT_EQ(Text(1), first);
        EXPECT_EQ(Text(2), second);
    }
    // After a box, as a window manager does.
    void Reactivate()
    {
        m_grid->window()->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_grid->window()));
    }
    void Undo()
    {
        PressKey(m_grid, Qt::Key_Z, Qt::ControlModifier);
        ExpectTexts(m_first, m_second);
        EXPECT_FALSE(m_grid->GetUndo().CanUndo());
    }

    CXTPReportControl* m_grid;
    const std::string m_first;
    const std::string m_second;
};
