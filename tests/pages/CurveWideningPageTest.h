// The page for curve widenings with its grid, for the tests of both.
#pragma once

#include "base/Text.h"
#include "pages/CurveWideningPage.h"
#include "platform/mfc/String.h"
#include "tests/pages/PageTest.h"

using namespace designspec;

class CurveWideningPageTest : public PageTest<CCurveWideningPage> {
protected:
    static constexpr int kMode = 123;

    void Load(const CDSCurveWidening& criterion)
    {
        PageTest::Load(&CDesignSpecification::CurveWidening, criterion);
    }
    static CDSCurveWidening& Stored() { return Specification().CurveWidening; }

    static CDSCurveWidening Ranges(std::initializer_list<WideningRange> ranges)
    {
        CDSCurveWidening criterion;
        criterion.ranges.RemoveAll();
        for (const WideningRange& range : ranges)
            criterion.ranges.Add(range);
        return criterion;
    }
    // Two continuous ranges, 大 in both, 小 in the first alone.
    static CDSCurveWidening TwoRanges()
    {
        return Ranges({{250, 1000, {{L"大", 0.4}, {L"小", 0.25}}}, {150, 250, {{L"大", 0.6}}}});
    }

    CXTPReportControl* TheGrid() { return Grid(&m_page, CDSPage::kGrid); }
    // The captions of the columns of ranges without their line breaks.
    std::string Captions()
    {
        std::string captions = Columns(TheGrid());
        captions = captions.substr(captions.find(' ') + 1);
        std::erase(captions, '\n');
        return captions;
    }
    std::string Categories()
    {
        std::string names;
        for (int row = 0; row < TheGrid()->GetRecords().GetCount(); ++row)
            names += (row ? "|" : "") + ToUtf8(CellText(TheGrid(), row, 0));
        return names;
    }
    // Opens a dialog through the menu of the header, which is there without rows too, and enters
    // a text.
    void EnterByMenu(const CString& item, const CString& text)
    {
        ExpectModal menu([&item](QWidget* window) { ChooseMenuItem(window, item); });
        ExpectModal dialog([&text](QWidget* window) {
            TypeInto(window, 108, text);
            Click(window, IDOK);
        });
        RightClickHeader(TheGrid(), 0);
    }
    // The same, and the message that answers it.
    void ExpectRefused(const CString& item, const CString& text, const CString& message)
    {
        ExpectModal menu([&item](QWidget* window) { ChooseMenuItem(window, item); });
        ExpectModal dialog([&text](QWidget* window) {
            TypeInto(window, 108, text);
            Click(window, IDOK);
        });
        ExpectMessage box(message);
        RightClickHeader(TheGrid(), 0);
    }
    void SelectMode(Qt::Key key)
    {
        Control(&m_page, kMode)->setFocus();
        PressKey(&m_page, key);
    }
};
