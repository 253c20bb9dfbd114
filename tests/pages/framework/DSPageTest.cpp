#include "pages/framework/DSPage.h"

#include <QLineEdit>
#include <QPushButton>

#include <gtest/gtest.h>

#include "pages/framework/FamilyIcon.h"
#include "platform/mfc/QtText.h"
#include "tests/pages/PageTest.h"

namespace {

class CQuietCallback : public CDSCallback {
public:
    using CDSCallback::CDSCallback;
    void Load(const wchar_t* name) override { m_strName = name; }
    void Rename(const wchar_t*) override {}
    bool Validate(CString&) override { return true; }
    bool Save() override { return Specification() != nullptr; }
    bool RenameAndSave(const wchar_t*) override { return true; }
};

class CTestPage : public CDSPage {
public:
    CTestPage() : CDSPage(104)
    {
        AddSourceButton(109, m_source);
        DisableInViewMode({107});
        HideInViewMode(110);
    }
    CDSCallback& Callback() override { return m_callback; }
    CXTPReportControl* MakeGrid() { return CreateGrid(kGridPlaceholder, kGrid, L"角", 95); }
    bool Fail(CString& message) { return Refuse(message, L"不好", 108); }
    void FollowCheck() { EnableByCheck(107, {108, 110}); }

    CString m_source = L"来源";

private:
    CQuietCallback m_callback{this};
};

class DSPage : public PageTest<CTestPage> {
protected:
    QPushButton* Button() { return Control<QPushButton>(&m_page, 109); }
    void OpenSource(const ModalAction& action)
    {
        ExpectModal dialog(action);
        Click(&m_page, 109);
    }
};

CString TitleOf(QWidget* window)
{
    return dynamic_cast<CDialog*>(window)->GetWindowText();
}

CString PromptOf(QWidget* window)
{
    return dynamic_cast<CDialog*>(window)->GetDlgItemText(119);
}

} // namespace

TEST(FamilyIcon, ComesFromTheResourceLibrary)
{
    EXPECT_FALSE(FamilyIcon(L"IDI_ICON_BOOK").isNull());
    EXPECT_TRUE(FamilyIcon(L"IDI_ICON_NONE").isNull());
}

TEST_F(DSPage, ItsSourceButtonsShowTheBook)
{
    EXPECT_EQ(Button()->text(), QString());
    EXPECT_FALSE(Button()->icon().isNull());
    EXPECT_EQ(Button()->iconSize(), QSize(16, 16));
    EXPECT_EQ(Button()->accessibleName(), QStringLiteral("数据来源"));
}

TEST_F(DSPage, TheBookIsFilledWhileThereIsASource)
{
    Show();
    const auto isFilled = [this] {
        const QImage book = FamilyIcon(L"IDI_ICON_BOOK").pixmap(16, 16).toImage();
        return Button()->icon().pixmap(16, 16).toImage() != book;
    };
    EXPECT_TRUE(isFilled());
    EXPECT_EQ(Button()->toolTip(), QStringLiteral("数据来源: 来源"));
    OpenSource([](QWidget* window) {
        TypeInto(window, 108, L" ");
        Click(window, IDOK);
    });
    EXPECT_FALSE(isFilled());
    EXPECT_EQ(Button()->toolTip(), QStringLiteral("数据来源: 未填"));
    OpenSource([](QWidget* window) {
        TypeInto(window, 108, L"<b>第3章");
        Click(window, IDOK);
    });
    EXPECT_TRUE(isFilled());
    EXPECT_EQ(Button()->toolTip(), ToToolTip(QStringLiteral("数据来源: <b>第3章")));
    EXPECT_EQ(Button()->accessibleDescription(), QStringLiteral("数据来源: <b>第3章"));
}

TEST_F(DSPage, ASourceIsEditedInATextDialog)
{
    Show();
    OpenSource([](QWidget* window) {
        EXPECT_EQ(TitleOf(window), L"数据来源");
        EXPECT_EQ(PromptOf(window), L"输入数据来源:");
        EXPECT_EQ(Control<QLineEdit>(window, 108)->text(), QStringLiteral("来源"));
        TypeInto(window, 108, L"  第3章 ");
        Click(window, IDOK);
    });
    EXPECT_EQ(m_page.m_source, L"第3章");
}

TEST_F(DSPage, CancelTakesOnlyBlanksFromASource)
{
    m_page.m_source = L" 旧的 ";
    Show();
    OpenSource([](QWidget* window) {
        TypeInto(window, 108, L"新的");
        Click(window, IDCANCEL);
    });
    EXPECT_EQ(m_page.m_source, L"旧的");
}

TEST_F(DSPage, ViewModeShowsASourceReadOnly)
{
    m_page.m_source = L" 旧的 ";
    Show(true);
    OpenSource([](QWidget* window) {
        EXPECT_EQ(TitleOf(window), L"数据来源");
        EXPECT_EQ(PromptOf(window), L"数据来源:");
        EXPECT_TRUE(Control<QLineEdit>(window, 108)->isReadOnly());
        TypeInto(window, 108, L"新的");
        Click(window, IDOK);
    });
    EXPECT_EQ(m_page.m_source, L" 旧的 ");
}

TEST_F(DSPage, AGridTakesThePlaceholdersPlace)
{
    m_page.GetDlgItem(CDSPage::kGridPlaceholder)->setAccessibleName(QStringLiteral("半径"));
    CXTPReportControl* const grid = m_page.MakeGrid();
    Show();
    EXPECT_EQ(grid->accessibleName(), QStringLiteral("半径"));
    EXPECT_EQ(Control(&m_page, CDSPage::kGrid), grid);
    EXPECT_TRUE(grid->isVisible());
    EXPECT_FALSE(IsShown(CDSPage::kGridPlaceholder));
    EXPECT_TRUE(grid->IsAllowEdit());
    const CXTPReportColumn* const corner = grid->GetColumns().GetAt(0);
    EXPECT_EQ(corner->GetCaption(), L"角");
    EXPECT_EQ(corner->GetWidth(), 95);
}

TEST_F(DSPage, ReadOnlyLocksGridsAndControlsAndHidesHints)
{
    CXTPReportControl* const grid = m_page.MakeGrid();
    Show();
    m_page.MakeReadOnly();
    EXPECT_FALSE(grid->IsAllowEdit());
    EXPECT_FALSE(IsEnabled(107));
    EXPECT_TRUE(IsEnabled(109));
    EXPECT_FALSE(IsShown(CDSPage::kHint));
    EXPECT_FALSE(IsShown(110));
}

TEST_F(DSPage, ControlsFollowTheirCheckBox)
{
    m_page.FollowCheck();
    Show();
    EXPECT_FALSE(IsEnabled(108));
    EXPECT_FALSE(IsEnabled(110));
    Click(&m_page, 107);
    EXPECT_TRUE(IsEnabled(108));
    EXPECT_TRUE(IsEnabled(110));
    m_page.CheckDlgButton(107, false);
    EXPECT_FALSE(IsEnabled(108));
}

TEST_F(DSPage, TheFocusGoesToWhatWasRefused)
{
    Show();
    CString message;
    EXPECT_FALSE(m_page.Fail(message));
    EXPECT_EQ(message, L"不好");
    m_page.FocusRefused();
    EXPECT_TRUE(Control(&m_page, 108)->hasFocus());
}

TEST_F(DSPage, ItsCallbackKnowsTheMainDialog)
{
    EXPECT_FALSE(m_page.IsViewMode());
    m_viewMode = true;
    EXPECT_TRUE(m_page.IsViewMode());
    m_page.Callback().Activate();
    EXPECT_EQ(m_selected, &m_page.Callback());
}

TEST_F(DSPage, ACallbackWithoutAMainDialogIsNotInViewMode)
{
    m_viewMode = true;
    m_page.Callback().SetMainDialog(nullptr);
    EXPECT_FALSE(m_page.IsViewMode());
    m_page.Callback().Activate();
    EXPECT_EQ(m_selected, nullptr);
}

TEST_F(DSPage, ACallbackFindsItsSpecificationByNameInAnyCase)
{
    Add(Make(L"Road"));
    m_page.Callback().Load(L"ROAD");
    EXPECT_TRUE(m_page.Callback().Save());
    m_page.Callback().Load(L"street");
    EXPECT_FALSE(m_page.Callback().Save());
}
