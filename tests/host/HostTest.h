// A host on a project of its own, with settings of its own and the fake module.
#pragma once

#include <memory>

#include <QLabel>
#include <QListWidget>
#include <QSettings>
#include <QTableView>
#include <QTest>
#include <gtest/gtest.h>

#include "base/Text.h"
#include "host/ControlIds.h"
#include "host/HostWindow.h"
#include "host/MessageBar.h"
#include "host/StyleManagerView.h"
#include "platform/mfc/QtText.h"
#include "platform/mfc/String.h"
#include "tests/gui/Controls.h"
#include "tests/gui/Modal.h"
#include "tests/modules/FakeLibrary.h"
#include "tests/modules/TestInstall.h"

using namespace designspec;

class HostTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        QCoreApplication::setOrganizationName(QStringLiteral("roadhost-test"));
        QSettings::setDefaultFormat(QSettings::IniFormat);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, ToQString(settings.Path()));
        QSettings().clear();
        QSettings().setValue(QStringLiteral("modulesAtStart"),
                             QStringList(QStringLiteral("FakeModule.arx")));
        install.Write("StyleGroups.json", kFakeGroups);
        std::filesystem::create_directories(project.Native() / "规范");
        VMRDPub::SetCurPrjPath(project.Path());
    }
    void TearDown() override
    {
        host.reset();
        VMRDPub::SetCurPrjPath({});
    }

    // Puts styles of those names into the project's files.
    void Have(const CStringArray& names)
    {
        for (const CString& name : names)
            files.Add(name);
    }
    // Starts the host on the project.
    void Start()
    {
        host = std::make_unique<HostWindow>();
        ASSERT_TRUE(host->OpenProject(ToQString(project.Path())));
        host->LoadModules();
        Show();
    }
    void Show()
    {
        host->resize(1100, 700);
        host->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(host.get()));
        host->activateWindow();
        QTest::qWait(1);
    }

    // Presses a key where the focus is. Without a window manager nobody gives the window the focus
    // back after a dialog.
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        host->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(host.get()));
        PressKey(host.get(), key, modifiers);
    }
    // A style that another program puts into the project. Its file's name.
    CString AddOutside(const CString& name)
    {
        const TemporaryFolder other;
        VMRDPub::SetCurPrjPath(other.Path());
        CFakeStyles elsewhere;
        const CFakeStyle* const style = elsewhere.Add(name);
        const std::string file = ToUtf8(name + VMRDPub::GUIDToStr(style->id)) + ".hds";
        std::filesystem::copy(other.Native() / "规范" / file, project.Native() / "规范" / file);
        VMRDPub::SetCurPrjPath(project.Path());
        return ToWide(file);
    }

    // A file outside the project that holds a style of that name.
    CString StyleFile(const CString& name) const
    {
        const CString path = ToWide((settings.Native() / (ToUtf8(name) + ".hds")).string());
        const TemporaryFolder other;
        VMRDPub::SetCurPrjPath(other.Path());
        CFakeStyles elsewhere;
        elsewhere.Add(name);
        EXPECT_TRUE(elsewhere.Export(path.c_str(), {}, nullptr));
        VMRDPub::SetCurPrjPath(project.Path());
        return path;
    }
    // Takes what the dialog of an import offers, which are these.
    static ModalAction Import(const CStringArray& offered)
    {
        return [=](QWidget* window) {
            const auto* const list = Control<QListWidget>(window, ControlId::ImportNames);
            CStringArray names;
            for (int i = 0; i < list->count(); ++i)
                names.push_back(FromQString(list->item(i)->text()));
            EXPECT_EQ(names, offered);
            Click(window, IDOK);
        };
    }

    QTableView* Table() const { return Control<QTableView>(host.get(), ControlId::Styles); }
    CString Cell(int row, int column) const
    {
        return FromQString(Table()->model()->index(row, column).data().toString());
    }
    // The names in the list, from top to bottom; the default one with a star before it.
    CStringArray Listed() const
    {
        CStringArray names;
        for (int row = 0; row < Table()->model()->rowCount(); ++row)
            names.push_back((Cell(row, 1).empty() ? L"" : L"*") + Cell(row, 0));
        return names;
    }
    QPoint RowPlace(const CString& name) const
    {
        for (int row = 0; row < Table()->model()->rowCount(); ++row)
            if (Cell(row, 0) == name)
                return Table()->visualRect(Table()->model()->index(row, 0)).center();
        ADD_FAILURE() << "not listed: " << ToUtf8(name);
        return {};
    }
    void ClickRow(const CString& name, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::mouseClick(Table()->viewport(), Qt::LeftButton, modifiers, RowPlace(name));
    }
    // Below the last row: nothing is selected after that.
    void ClickNoRow() const
    {
        QWidget* const viewport = Table()->viewport();
        QTest::mouseClick(viewport, Qt::LeftButton, {},
                          viewport->rect().bottomLeft() + QPoint(20, -5));
    }
    void OpenContextMenu() const
    {
        const QPoint place = Table()->viewport()->rect().center();
        QContextMenuEvent event(QContextMenuEvent::Keyboard, place,
                                Table()->viewport()->mapToGlobal(place));
        QApplication::sendEvent(Table(), &event);
    }
    CStringArray Selected() const
    {
        CStringArray names;
        for (const QModelIndex& row : Table()->selectionModel()->selectedRows())
            names.push_back(Cell(row.row(), 0));
        std::sort(names.begin(), names.end());
        return names;
    }

    // What a message bar shows; empty while it is hidden.
    CString BarText(int bar) const
    {
        QWidget* const shown = Control(host.get(), bar);
        return shown->isVisible() ? FromQString(Control<QLabel>(shown, ControlId::BarText)->text())
                                  : CString();
    }
    bool WaitForNoBar(int bar) const
    {
        return QTest::qWaitFor([&] { return !Control(host.get(), bar)->isVisible(); }, 5000);
    }
    bool WaitForBar(int bar) const
    {
        return QTest::qWaitFor([&] { return Control(host.get(), bar)->isVisible(); }, 5000);
    }
    // Names of the files of the library folder, or of one in it, sorted.
    CStringArray FilesIn(const char* folder) const
    {
        CStringArray names;
        const std::filesystem::path path = project.Native() / folder;
        if (std::filesystem::exists(path))
            for (const auto& entry : std::filesystem::directory_iterator(path))
                if (entry.is_regular_file())
                    names.push_back(ToWide(entry.path().filename().string()));
        std::sort(names.begin(), names.end());
        return names;
    }
    size_t HdsFiles(const char* folder) const
    {
        size_t count = 0;
        for (const CString& name : FilesIn(folder))
            if (name.ends_with(L".hds")) ++count;
        return count;
    }

    TemporaryFolder settings;
    TemporaryFolder project;
    TestInstall install{"FakeModule.arx", "VMRDPrj.arx"};
    CFakeStyles files; // writes the project's files
    std::unique_ptr<HostWindow> host;
};
