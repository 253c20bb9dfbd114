#include "tests/gui/Controls.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QTest>

#include <gtest/gtest.h>

#include "platform/mfc/Dialog.h"
#include "platform/mfc/QtText.h"
#include "platform/xtp/report/ReportControl.h"

using namespace designspec;

namespace {

QWidget* FocusIn(QWidget* widget)
{
    QWidget* const window = widget->window();
    return window->focusWidget() ? window->focusWidget() : window;
}

QPoint CellCentre(const CXTPReportControl* grid, int row, int column)
{
    const QModelIndex index = grid->IndexOf(row, column);
    if (!index.isValid()) ADD_FAILURE() << "no cell " << row << ", " << column;
    return grid->visualRect(index).center();
}

QPoint HeaderCentre(const CXTPReportControl* grid, int column)
{
    const QHeaderView* const header = grid->horizontalHeader();
    return {header->sectionViewportPosition(column) + header->sectionSize(column) / 2,
            header->height() / 2};
}

} // namespace

QWidget* Control(QWidget* root, int id)
{
    for (QWidget* child : root->findChildren<QWidget*>()) {
        const QVariant value = child->property(kControlIdProperty);
        if (value.isValid() && value.toInt() == id && child->window() == root->window())
            return child;
    }
    ADD_FAILURE() << "no control " << id;
    return nullptr;
}

void PressKey(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(FocusIn(widget), key, modifiers);
}

void Type(QWidget* widget, const CString& text)
{
    for (wchar_t c : text) {
        if (c < 0x80) {
            QTest::keyClick(FocusIn(widget), static_cast<char>(c));
            continue;
        }
        // Input methods are off where nothing can be entered.
        if (!FocusIn(widget)->testAttribute(Qt::WA_InputMethodEnabled)) continue;
        QInputMethodEvent event;
        event.setCommitString(ToQString({&c, 1}));
        QApplication::sendEvent(FocusIn(widget), &event);
    }
}

void Click(QWidget* root, int id)
{
    QWidget* const control = Control(root, id);
    if (!control) return;
    QPoint place = control->rect().center();
    if (qobject_cast<QCheckBox*>(control) || qobject_cast<QRadioButton*>(control)) place.setX(8);
    QTest::mouseClick(control, Qt::LeftButton, {}, place);
}

void TypeInto(QWidget* root, int id, const CString& text)
{
    Click(root, id);
    auto* const edit = Control<QLineEdit>(root, id);
    if (!edit) return;
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(edit, Qt::Key_Backspace);
    Type(edit, text);
}

CXTPReportControl* Grid(QWidget* root, int id)
{
    return Control<CXTPReportControl>(root, id);
}

CString CellText(const CXTPReportControl* grid, int row, int column)
{
    return FromQString(grid->IndexOf(row, column).data().toString());
}

CStringArray ColumnCaptions(const CXTPReportControl* grid)
{
    CStringArray captions;
    for (int i = 0; grid->ShownColumn(i); ++i)
        if (!grid->isColumnHidden(i)) captions.push_back(grid->ShownColumn(i)->GetCaption());
    return captions;
}

void ClickCell(CXTPReportControl* grid, int row, int column, Qt::KeyboardModifiers modifiers)
{
    grid->scrollTo(grid->IndexOf(row, column));
    const QPoint place = CellCentre(grid, row, column);
    QWidget* const viewport = grid->viewport();
    QWidget* const editor = viewport->childAt(place);
    QWidget* const target = editor ? editor : viewport;
    QTest::mouseClick(target, Qt::LeftButton, modifiers, target->mapFrom(viewport, place));
}

void DragCells(CXTPReportControl* grid, int row, int column, int toRow, int toColumn)
{
    const QPoint from = CellCentre(grid, row, column);
    const QPoint to = CellCentre(grid, toRow, toColumn);
    QTest::mousePress(grid->viewport(), Qt::LeftButton, {}, from);
    // QTest's own move says nothing of the button that is down.
    for (const QPoint& place : {(from + to) / 2, to}) {
        QMouseEvent move(QEvent::MouseMove, place, grid->viewport()->mapToGlobal(place),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(grid->viewport(), &move);
    }
    QTest::mouseRelease(grid->viewport(), Qt::LeftButton, {}, to);
}

void EditCell(CXTPReportControl* grid, int row, int column, const CString& text, Qt::Key key)
{
    ClickCell(grid, row, column);
    PressKey(grid, Qt::Key_A, Qt::ControlModifier);
    PressKey(grid, Qt::Key_Backspace);
    Type(grid, text);
    PressKey(grid, key);
}

void RightClickCell(CXTPReportControl* grid, int row, int column)
{
    grid->scrollTo(grid->IndexOf(row, column));
    QTest::mouseClick(grid->viewport(), Qt::RightButton, {}, CellCentre(grid, row, column));
}

void RightClickHeader(CXTPReportControl* grid, int column)
{
    QTest::mouseClick(grid->horizontalHeader()->viewport(), Qt::RightButton, {},
                      HeaderCentre(grid, column));
}
