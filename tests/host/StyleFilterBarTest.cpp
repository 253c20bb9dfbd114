// The list of the style manager, as somebody looks for styles in it.
#include "host/StyleFilterBar.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>

#include "host/StyleListModel.h"
#include "platform/vmrd/VMRDPrj/StyleEditor.h"
#include "tests/host/HostTest.h"

namespace {

// Finds what its styles have as a number, and tells of two kinds of them.
class NumberEditor : public CStyleEditor {
public:
    explicit NumberEditor(CFakeStyles& styles) : m_styles(styles) {}
    CStyles* GetStyles() const override { return &m_styles; }
    CStyle* New(CStyle*) override { return nullptr; }
    bool Delete(CStyle*) override { return false; }
    void Edit(CStyle*) override {}
    std::span<const StyleColumn> Columns() const override
    {
        static constexpr StyleColumn kColumns[] = {{L"种类", 6, true}};
        return kColumns;
    }
    CStringArray ColumnTexts(const CStyle& style) const override
    {
        return {static_cast<const CFakeStyle&>(style).value > 5 ? L"大、奇" : L"小"};
    }
    std::optional<CString> Find(const CStyle& style, const CString& told,
                                const CString& words) override
    {
        lastTold = told;
        const CString number = std::to_wstring(static_cast<const CFakeStyle&>(style).value);
        return number == words ? std::optional(L"数: " + number) : std::nullopt;
    }

    CString lastTold;

private:
    CFakeStyles& m_styles;
};

class StyleFilterBarTest : public HostTest {
protected:
    StyleFilterBarTest()
    {
        connection = QObject::connect(&bar, &StyleFilterBar::Changed, [this] { Look(); });
    }
    void SetUp() override
    {
        HostTest::SetUp();
        for (const auto& [name, value] : {std::pair(L"甲", 3), {L"乙", 7}, {L"丙", 9}})
            files.Add(name)->value = value;
        list.Show(&editor);
        Look();
        bar.resize(600, 40);
        bar.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&bar));
    }
    void Look()
    {
        shown.clear();
        const std::vector<bool> accepted = bar.Accept(list, &editor);
        for (int row = 0; row < list.rowCount(); ++row)
            if (accepted[static_cast<size_t>(row)])
                shown += FromQString(list.index(row, 0).data().toString());
    }
    CString Count() { return FromQString(Control<QLabel>(&bar, ControlId::FilterCount)->text()); }
    QComboBox* Groups() { return Control<QComboBox>(&bar, ControlId::FilterGroup); }
    void Choose(int index)
    {
        Groups()->setFocus();
        PressKey(&bar, Qt::Key_Home);
        for (int i = 0; i < index; ++i)
            PressKey(&bar, Qt::Key_Down);
    }

    NumberEditor editor{files};
    StyleListModel list;
    StyleFilterBar bar;
    QMetaObject::Connection connection;
    CString shown;
};

TEST_F(StyleFilterBarTest, NamesColumnsAndWhatTheEditorFindsAreShown)
{
    EXPECT_EQ(shown, L"甲乙丙");
    EXPECT_EQ(Count(), L"3 个");
    TypeInto(&bar, ControlId::Filter, L"乙");
    EXPECT_EQ(shown, L"乙");
    EXPECT_EQ(Count(), L"1 / 3 个");
    TypeInto(&bar, ControlId::Filter, L"奇");
    EXPECT_EQ(shown, L"乙丙");
    TypeInto(&bar, ControlId::Filter, L"3");
    EXPECT_EQ(shown, L"甲");
    EXPECT_EQ(list.index(0, 0).data(Qt::ToolTipRole).toString(), QStringLiteral("甲\n数: 3"));
    EXPECT_EQ(editor.lastTold, L"丙\n大、奇");
    TypeInto(&bar, ControlId::Filter, L"8");
    EXPECT_EQ(shown, L"");
    EXPECT_EQ(Count(), L"0 / 3 个");
}

TEST_F(StyleFilterBarTest, OneGroupAloneCanBeShown)
{
    ASSERT_EQ(Groups()->count(), 4);
    EXPECT_EQ(Groups()->itemText(1), QStringLiteral("小 (1)"));
    EXPECT_EQ(Groups()->itemText(2), QStringLiteral("大 (2)"));
    Choose(2);
    EXPECT_EQ(shown, L"乙丙");
    TypeInto(&bar, ControlId::Filter, L"7");
    EXPECT_EQ(shown, L"乙");
    TypeInto(&bar, ControlId::Filter, L"3");
    EXPECT_EQ(shown, L"");
    files.Add(L"丁")->value = 11;
    list.Show(&editor);
    Look();
    EXPECT_EQ(Groups()->currentText(), QStringLiteral("大 (3)")) << "the choice stays";
    QSignalSpy left(&bar, &StyleFilterBar::Left);
    Control(&bar, ControlId::Filter)->setFocus();
    PressKey(&bar, Qt::Key_Escape);
    EXPECT_EQ(left.count(), 1);
    EXPECT_TRUE(bar.IsEmpty());
    EXPECT_EQ(shown, L"甲乙丙丁");
}

TEST_F(StyleFilterBarTest, WithoutGroupsThereIsNothingToChoose)
{
    EXPECT_TRUE(Groups()->isVisible());
    list.Show(nullptr);
    EXPECT_TRUE(bar.Accept(list, nullptr).empty());
    EXPECT_FALSE(Groups()->isVisible());
    EXPECT_EQ(Count(), L"0 个");
}

} // namespace
