// What a person does with a dialog that asks for one value.
#pragma once

#include <gtest/gtest.h>

#include "base/Text.h"
#include "platform/mfc/Dialog.h"
#include "platform/mfc/String.h"
#include "platform/vmrd/VMRDControls/InputDialog.h"
#include "tests/gui/Controls.h"
#include "tests/gui/Modal.h"

using namespace designspec;

// Types `text` and confirms: the value that came back.
inline CString EnterInto(CInputDialog& dialog, const CString& text)
{
    const ExpectModal modal([&text](QWidget* window) {
        TypeInto(window, 108, text);
        Click(window, IDOK);
    });
    CString value;
    EXPECT_TRUE(dialog.Input(value)) << ToUtf8(text);
    return value;
}

// Types `text`, confirms, expects the message, sees the dialog still open and cancels.
inline void ExpectRefusedBy(CInputDialog& dialog, const CString& text, const CString& message)
{
    SCOPED_TRACE(ToUtf8(text));
    const ExpectModal modal([&](QWidget* window) {
        TypeInto(window, 108, text);
        {
            const ExpectMessage box(message);
            Click(window, IDOK);
        }
        EXPECT_TRUE(window->isVisible());
        Click(window, IDCANCEL);
    });
    CString value = L"before";
    EXPECT_FALSE(dialog.Input(value));
    EXPECT_EQ(value, L"before");
}
