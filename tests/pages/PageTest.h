// A page alone in a window, with a library that holds one specification, 甲.
#pragma once

#include <numeric>

#include <QApplication>
#include <QGroupBox>
#include <QHelpEvent>
#include <QLabel>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>

#include "base/Text.h"
#include "pages/framework/DSPage.h"
#include "platform/mfc/String.h"
#include "tests/pages/PageActions.h"
#include "tests/support/LibraryTest.h"

using namespace designspec;

template <class Page> class PageTest : public LibraryTest, private CPageHost {
protected:
    PageTest()
    {
        Add(Make(L"甲"));
        m_frame.resize(760, 420);
        auto* const layout = new QVBoxLayout(&m_frame);
        EXPECT_TRUE(m_page.Create(&m_frame));
        layout->addWidget(&m_page);
        m_page.Callback().SetMainDialog(this);
        m_page.hide();
    }

    // Brings the page to the front, as the tree does.
    void Show(bool viewMode = false)
    {
        m_viewMode = viewMode;
        m_frame.show();
        m_page.show();
        m_page.Callback().OnShow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_frame));
    }

    // Gives 甲 that criterion and loads it into the page.
    template <class Criterion>
    void Load(Criterion CDesignSpecification::*member, const Criterion& criterion)
    {
        Specification().*member = criterion;
        m_page.Callback().Load(L"甲");
    }

    static CDesignSpecification& Specification() { return *Library().Item(L"甲"); }

    // Why the page is not valid; empty when it is.
    std::string Fault()
    {
        CString message;
        const bool valid = m_page.Callback().Validate(message);
        EXPECT_EQ(valid, message.empty());
        return ToUtf8(message);
    }
    bool Save() { return m_page.Callback().Save(); }

    bool IsEnabled(int id) { return Control(&m_page, id)->isEnabled(); }
    bool IsShown(int id) { return Control(&m_page, id)->isVisible(); }
    std::string TextOf(int id) { return ToUtf8(m_page.GetDlgItemText(id)); }

    // What the mouse tells over a cell, as plain text.
    static std::string ToolTipOf(CXTPReportControl* grid, int row, int column)
    {
        const QPoint place = grid->visualRect(grid->IndexOf(row, column)).center();
        QToolTip::hideText();
        QHelpEvent help(QEvent::ToolTip, place, grid->viewport()->mapToGlobal(place));
        QApplication::sendEvent(grid->viewport(), &help);
        const std::string told = QToolTip::text().toStdString();
        QToolTip::hideText();
        return told;
    }

    // The captions of labels and groups that have no id, joined by bars.
    std::string Labels()
    {
        std::string texts;
        const auto add = [&texts](const QWidget* widget, const QString& text) {
            if (widget->property(kControlIdProperty).isValid()) return;
            texts += (texts.empty() ? "" : "|") + text.toStdString();
        };
        for (const QWidget* widget : m_page.template findChildren<QWidget*>()) {
            if (const auto* label = qobject_cast<const QLabel*>(widget)) add(label, label->text());
            if (const auto* group = qobject_cast<const QGroupBox*>(widget))
                add(group, group->title());
        }
        return texts;
    }
    // The ids of the controls that Tab goes through, joined by blanks.
    std::string TabOrder()
    {
        std::string ids;
        for (const QWidget* next = m_page.nextInFocusChain(); next != &m_page;
             next = next->nextInFocusChain()) {
            const QVariant id = next->property(kControlIdProperty);
            const bool isStop = next->isVisible() && next->isEnabled() &&
                                (next->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
            if (isStop && id.isValid() && m_page.isAncestorOf(next))
                ids += (ids.empty() ? "" : " ") + std::to_string(id.toInt());
        }
        return ids;
    }

    // Whether a label of that text can be seen.
    bool HasLabel(const char* text)
    {
        for (const QLabel* label : m_frame.findChildren<QLabel*>())
            if (label->isVisible() && label->text() == QString::fromUtf8(text)) return true;
        return false;
    }

    std::string ReadSource(int button) { return ::ReadSource(&m_page, button, m_viewMode); }
    void EnterSource(int button, const CString& text) { ::EnterSource(&m_page, button, text); }
    // In view mode: what the source reads after somebody has tried to change it.
    std::string ReadLockedSource(int button)
    {
        EnterSource(button, L"改");
        return ReadSource(button);
    }

    // The page shows the criterion's source and stores what is entered, without blanks around it.
    template <class Criterion>
    void ExpectKeepsSource(int button, Criterion CDesignSpecification::*member)
    {
        Criterion& stored = Specification().*member;
        stored.Criterion = L"规范第7条";
        m_page.Callback().Load(L"甲");
        Show();
        EXPECT_EQ(ReadSource(button), "规范第7条");
        EnterSource(button, L" 第8条 ");
        ASSERT_TRUE(Save());
        EXPECT_EQ(stored.Criterion, L"第8条");
        m_page.Callback().Load(L"甲");
        EXPECT_EQ(ReadSource(button), "第8条");
    }

    // The lines of the menu that a right click on a cell opens; nothing is chosen.
    static std::vector<std::string> MenuOf(CXTPReportControl* grid, int row, int column)
    {
        return LinesOfMenu([=] { RightClickCell(grid, row, column); });
    }
    // The same on a column's header.
    static std::vector<std::string> HeaderMenuOf(CXTPReportControl* grid, int column)
    {
        return LinesOfMenu([=] { RightClickHeader(grid, column); });
    }
    // Of a grid without rows too.
    static void ChooseFromHeaderMenu(CXTPReportControl* grid, int column, const CString& item)
    {
        ExpectModal menu([&item](QWidget* window) { ChooseMenuItem(window, item); });
        RightClickHeader(grid, column);
    }
    // The items of that menu with their ids.
    static std::vector<ShownMenuItem> HeaderMenuItemsOf(CXTPReportControl* grid, int column)
    {
        std::vector<ShownMenuItem> items;
        ExpectModal menu([&items](QWidget* window) {
            items = ReadMenu(window);
            PressKey(window, Qt::Key_Escape);
        });
        RightClickHeader(grid, column);
        return items;
    }
    // Neither a row nor the header has a menu.
    static void ExpectNoMenu(CXTPReportControl* grid)
    {
        RightClickCell(grid, 0, 1);
        RightClickHeader(grid, 0);
        WaitForNothing();
    }
    // No menu and no message comes: one that did would fail the test.
    static void WaitForNothing() { QTest::qWait(50); }

    bool IsViewMode() const override { return m_viewMode; }
    void SelectPage(const CDSCallback* callback) override { m_selected = callback; }

    bool m_viewMode = false;
    const CDSCallback* m_selected = nullptr;
    QWidget m_frame;
    Page m_page;

private:
    // They run from 10001 without a gap, whatever the menu holds.
    static void ExpectIdsInOrder(QWidget* menu)
    {
        const std::vector<unsigned> ids = MenuIds(ReadMenu(menu));
        std::vector<unsigned> expected(ids.size());
        std::iota(expected.begin(), expected.end(), 10001U);
        EXPECT_EQ(ids, expected);
    }
    static std::vector<std::string> LinesOfMenu(const std::function<void()>& rightClick)
    {
        std::vector<std::string> lines;
        ExpectModal menu([&lines](QWidget* window) {
            ExpectIdsInOrder(window);
            for (const CString& line : MenuLines(window))
                lines.push_back(ToUtf8(line));
            PressKey(window, Qt::Key_Escape);
        });
        rightClick();
        return lines;
    }
};
