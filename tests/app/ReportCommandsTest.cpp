#include "app/ReportCommands.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPushButton>
#include <gtest/gtest.h>

#include "app/DSEditor.h"
#include "platform/mfc/QtText.h"
#include "tests/app/AppTest.h"

using namespace designspec;

namespace {

class ReportCommands : public AppTest {
protected:
    CString Run(const wchar_t* caption)
    {
        CArray<GUID> selected;
        for (int i = 0; i < Library().Count(); ++i)
            selected.push_back(Library().Item(i)->ID());
        for (const EditorCommand& command : m_editor.OwnCommands())
            if (CString(command.caption) == caption) return m_editor.RunOwn(command.id, selected);
        ADD_FAILURE() << "no such command";
        return {};
    }
    std::string Start(std::string_view file) { return m_project.Read(file).substr(0, 5); }

    CDSEditor m_editor;
};

} // namespace

TEST_F(ReportCommands, ExportWritesWhatTheEndingSays)
{
    Add(Make(L"甲"));
    Add(Make(L"乙"));
    for (const wchar_t* file : {L"a.pdf", L"b.html"}) {
        const ExpectModal dialog(ChooseFile(m_project.Path(file)));
        EXPECT_EQ(Run(L"导出报告…"), L"已导出: " + m_project.Path(file));
    }
    EXPECT_EQ(Start("a.pdf"), "%PDF-");
    const std::string html = m_project.Read("b.html");
    EXPECT_NE(html.find("<h2>甲</h2>"), std::string::npos);
    EXPECT_NE(html.find("<h2>乙</h2>"), std::string::npos);
}

TEST_F(ReportCommands, AFileWithoutAnEndingIsAPdf)
{
    Add(Make(L"甲"));
    const ExpectModal dialog(ChooseFile(m_project.Path(L"报告")));
    EXPECT_EQ(Run(L"导出报告…"), L"已导出: " + m_project.Path(L"报告.pdf"));
    EXPECT_EQ(Start("报告.pdf"), "%PDF-");
}

TEST_F(ReportCommands, WhatCannotBeWrittenIsTold)
{
    Add(Make(L"甲"));
    const ExpectModal dialog(ChooseFile(m_project.Path(L"a.doc")));
    const ExpectModal box([](QWidget* window) {
        const ShownMessage message = ReadMessage(window);
        EXPECT_NE(message.text.find(L"报告没有导出。"), CString::npos);
        EXPECT_NE(message.text.find(L"扩展名不是 .pdf 或 .html"), CString::npos);
        PressKey(window, Qt::Key_Return);
    });
    EXPECT_EQ(Run(L"导出报告…"), L"");
    EXPECT_FALSE(m_project.Has("a.doc"));
}

TEST_F(ReportCommands, NothingIsDoneWhenNothingIsChosen)
{
    Add(Make(L"甲"));
    for (const wchar_t* command : {L"导出报告…", L"打印…"}) {
        const ExpectModal dialog([](QWidget* window) { PressKey(window, Qt::Key_Escape); });
        EXPECT_EQ(Run(command), L"");
    }
}

// Where there is no printer, the system offers to print to a file.
TEST_F(ReportCommands, PrintsToAFile)
{
    Add(Make(L"甲"));
    const ExpectModal dialog([this](QWidget* window) {
        ASSERT_NE(dynamic_cast<QPrintDialog*>(window), nullptr);
        auto* const file = window->findChild<QLineEdit*>(QStringLiteral("filename"));
        ASSERT_NE(file, nullptr);
        file->setText(ToQString(m_project.Path(L"printed.pdf")));
        PressKey(window, Qt::Key_Return);
    });
    EXPECT_EQ(Run(L"打印…"), L"已导出: " + m_project.Path(L"printed.pdf"));
    EXPECT_EQ(Start("printed.pdf"), "%PDF-");
    EXPECT_NE(m_project.Read("printed.pdf").find("/Outlines"), std::string::npos);
}
