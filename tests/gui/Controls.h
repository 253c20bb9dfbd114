// Keys and clicks on controls found by their ids, and on the cells of a report grid.
#pragma once

#include <Qt>

#include "platform/mfc/String.h"

class CXTPReportControl;
class QWidget;

// The control of that id in `root`; null, and the test fails, when there is none.
QWidget* Control(QWidget* root, int id);
template <class T> T* Control(QWidget* root, int id)
{
    return dynamic_cast<T*>(Control(root, id));
}

// To whatever has the focus in the window of `widget`.
void PressKey(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
// Types text where the focus is; what no key stands for comes as from an input method.
void Type(QWidget* widget, const CString& text);
// Clicks the middle of a control; on a check box or radio button, its mark.
void Click(QWidget* root, int id);
// Clicks into an edit field and types over what is there.
void TypeInto(QWidget* root, int id, const CString& text);

// The grid of that id in `root`; null, and the test fails, when there is none.
CXTPReportControl* Grid(QWidget* root, int id);
CString CellText(const CXTPReportControl* grid, int row, int column);
// The captions of all columns that can be seen.
CStringArray ColumnCaptions(const CXTPReportControl* grid);
void ClickCell(CXTPReportControl* grid, int row, int column,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier);
// Drags the mouse with the left button from one cell to the other.
void DragCells(CXTPReportControl* grid, int row, int column, int toRow, int toColumn);
// Clicks the cell, types over its text and ends with `key`.
void EditCell(CXTPReportControl* grid, int row, int column, const CString& text,
              Qt::Key key = Qt::Key_Tab);
void RightClickCell(CXTPReportControl* grid, int row, int column);
void RightClickHeader(CXTPReportControl* grid, int column);
