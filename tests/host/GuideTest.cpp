// The user's guide, from each window of the host.
#include "host/Guide.h"

#include <QDialog>
#include <QLineEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "host/GuideBrowser.h"
#include "host/GuideWindow.h"
#include "platform/mfc/GuideSection.h"
#include "tests/host/HostTest.h"

namespace {

class GuideTest : public HostTest {
protected:
    static GuideWindow* Window()
    {
        for (QWidget* one : QApplication::topLevelWidgets())
            if (auto* const guide = qobject_cast<GuideWindow*>(one); guide && guide->isVisible())
                return guide;
        return nullptr;
    }
    static CString Section() { return Window() ? FromQString(Window()->Section()) : CString(); }
    static GuideBrowser* Text() { return Control<GuideBrowser>(Window(), ControlId::GuideText); }
    static CString Found()
    {
        return FromQString(Control<QLabel>(Window(), ControlId::GuideFound)->text());
    }
    void Open()
    {
        Have({L"甲"});
        Start();
        Key(Qt::Key_F1);
        ASSERT_TRUE(Window());
        ASSERT_TRUE(QTest::qWaitForWindowExposed(Window()));
    }
};

TEST_F(GuideTest, OpensAtTheSectionOfTheMainWindow)
{
    Open();
    EXPECT_EQ(Section(), L"样式管理器");
    auto* const contents = Control<QTreeWidget>(Window(), ControlId::GuideContents);
    ASSERT_TRUE(contents->currentItem());
    EXPECT_EQ(contents->currentItem()->text(0), QStringLiteral("样式管理器"));
    EXPECT_TRUE(host->isEnabled()) << "it can stay open";
    PressKey(Window(), Qt::Key_Escape);
    EXPECT_FALSE(Window());
    Key(Qt::Key_F1);
    EXPECT_EQ(Section(), L"样式管理器");
}

TEST_F(GuideTest, ADialogHasItsOwnSectionAndTheGuideStaysWhenItGoes)
{
    Have({L"甲"});
    Start();
    {
        QDialog dialog(host.get());
        QVBoxLayout layout(&dialog);
        auto* const field = new QLineEdit;
        layout.addWidget(field);
        SetGuideSection(&dialog, L"比较规范");
        const ExpectModal modal([&](QWidget* window) {
            PressKey(window, Qt::Key_F1);
            EXPECT_EQ(Section(), L"比较规范");
            // It can be used while the dialog waits.
            TypeInto(Window(), ControlId::GuideSearch, L"超高");
            EXPECT_TRUE(Found().ends_with(std::to_wstring(Text()->extraSelections().size())));
            PressKey(window, Qt::Key_Escape);
        });
        dialog.exec();
    }
    EXPECT_TRUE(Window());
    EXPECT_EQ(Window()->parentWidget(), host.get());
}

TEST_F(GuideTest, AWindowWithoutASectionHasThatOfItsOwner)
{
    QWidget owner;
    auto* const child = new QWidget(&owner, Qt::Window);
    EXPECT_EQ(GuideSectionOf(child), QString());
    SetGuideSection(&owner, L"历史");
    EXPECT_EQ(GuideSectionOf(child), QStringLiteral("历史"));
    SetGuideSection(child, L"表格");
    EXPECT_EQ(GuideSectionOf(child), QStringLiteral("表格"));
}

TEST_F(GuideTest, ContentsAndLinksLead)
{
    Open();
    auto* const contents = Control<QTreeWidget>(Window(), ControlId::GuideContents);
    QTreeWidgetItem* const item =
        contents->findItems(QStringLiteral("纵坡坡度"), Qt::MatchExactly | Qt::MatchRecursive)
            .value(0);
    ASSERT_TRUE(item);
    contents->scrollToItem(item);
    QTest::mouseClick(contents->viewport(), Qt::LeftButton, {},
                      contents->visualItemRect(item).center());
    EXPECT_EQ(Section(), L"纵坡坡度");
    emit Text()->anchorClicked(QUrl(QStringLiteral("#提示条跟踪面板模块面板")));
    EXPECT_EQ(Section(), L"提示条、跟踪面板、模块面板");
}

TEST_F(GuideTest, PicturesAreThereAndFit)
{
    Open();
    int pictures = 0;
    for (QTextBlock block = Text()->document()->begin(); block.isValid(); block = block.next())
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextImageFormat format = part.fragment().charFormat().toImageFormat();
            if (!format.isValid()) continue;
            const QVariant picture =
                Text()->document()->resource(QTextDocument::ImageResource, QUrl(format.name()));
            EXPECT_FALSE(picture.value<QImage>().isNull()) << format.name().toStdString();
            EXPECT_LE(picture.value<QImage>().width(), 660);
            ++pictures;
        }
    EXPECT_GT(pictures, 30);
}

TEST_F(GuideTest, SearchingGoesFromPlaceToPlace)
{
    Open();
    PressKey(Window(), Qt::Key_F, Qt::ControlModifier);
    Type(Window(), L"批量修改");
    const auto count = std::to_wstring(Text()->extraSelections().size());
    ASSERT_GT(Text()->extraSelections().size(), 2);
    const auto selected = [] { return Text()->textCursor().selectionStart(); };
    const int first = selected();
    EXPECT_EQ(Text()->textCursor().selectedText(), QStringLiteral("批量修改"));
    PressKey(Window(), Qt::Key_Return);
    EXPECT_NE(selected(), first);
    PressKey(Window(), Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(selected(), first);
    Click(Window(), ControlId::GuideBefore);
    Click(Window(), ControlId::GuideNext);
    EXPECT_EQ(selected(), first);
    TypeInto(Window(), ControlId::GuideSearch, L"没有这样的字");
    EXPECT_EQ(Found(), L"没有找到");
}

} // namespace
