// Message boxes. Every message box of the product is opened here and nowhere else.
#pragma once

#include "platform/mfc/Dialog.h"
#include "base/Export.h"
#include "platform/mfc/String.h"

class QWidget;

constexpr UINT MB_OK = 0x00;
constexpr UINT MB_OKCANCEL = 0x01;
constexpr UINT MB_YESNO = 0x04;
constexpr UINT MB_ICONERROR = 0x10;
constexpr UINT MB_ICONQUESTION = 0x20;
constexpr UINT MB_ICONWARNING = 0x30;
constexpr UINT MB_ICONINFORMATION = 0x40;
constexpr UINT MB_DEFBUTTON2 = 0x100; // Enter chooses the second button

// Shows `text`, which is never read as markup, and waits. Returns IDOK, IDCANCEL, IDYES or
// IDNO. Esc gives the answer that does least: cancel, no, or the only one there is.
AFX_EXT_API int MessageBox(QWidget* owner, const CString& text, const CString& caption,
                           UINT flags = MB_OK);
