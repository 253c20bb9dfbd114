#include "platform/mfc/QtText.h"

#include <gtest/gtest.h>

using namespace designspec;

TEST(QtText, SurvivesTheRoundTrip)
{
    for (const CString& text : {CString(L""), CString(L"规范 A"), CString(L"\U0001D11E!"),
                                CString{L'a', wchar_t(0xDCB9), L'b'}}) {
        EXPECT_EQ(FromQString(ToQString(text)), text);
    }
    EXPECT_EQ(ToQString(L"\U0001D11E").size(), 2);
}
