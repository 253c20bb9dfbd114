// Check windows on the example project, with the editor's module loaded as in a host.
#pragma once

#include <filesystem>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSettings>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

#include "TreePaths.h"
#include "base/Text.h"
#include "library/DesignSpecifications.h"
#include "platform/arx/Frame.h"
#include "platform/arx/Modules.h"
#include "platform/mfc/QtText.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "roadcheck/ControlIds.h"
#include "tests/gui/Controls.h"
#include "tests/gui/Modal.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TraceCapture.h"

using namespace designspec;

class RoadCheckTest : public ::testing::Test {
protected:
    static constexpr wchar_t kEditor[] = L"DesignSpecification.arx";

    RoadCheckTest()
    {
        namespace fs = std::filesystem;
        QSettings().clear();
        fs::copy(fs::path(SOURCE_DIR) / "examples/project/规范", m_project.Native("规范"),
                 fs::copy_options::recursive);
        for (const char* road : {"违规.xml", "合格.xml"})
            fs::copy_file(fs::path(SOURCE_DIR) / "examples/roads" / road, m_project.Native(road));
        VMRDPub::SetCurPrjPath(m_project.Path());
        m_frame.resize(400, 300);
        m_frame.show();
        SetFrame(&m_frame);
    }
    ~RoadCheckTest() override
    {
        if (IsModuleLoaded(kEditor)) acrxUnloadModule(kEditor, false);
        VMRDPub::SetCurPrjPath({});
    }

    // The check windows that are open, by their titles.
    static std::vector<QWidget*> Windows()
    {
        std::vector<QWidget*> windows;
        for (QWidget* const one : QApplication::topLevelWidgets())
            if (one->isVisible() && one->windowTitle().startsWith(QStringLiteral("道路检核")))
                windows.push_back(one);
        return windows;
    }
    // The only one.
    static QWidget* Window()
    {
        const auto windows = Windows();
        EXPECT_EQ(windows.size(), 1U);
        return windows.empty() ? nullptr : windows.front();
    }
    QString File(const char* name) const { return ToQString(m_project.Path(ToWide(name))); }

    // Until all that was begun is done.
    static bool WaitDone(QWidget* window)
    {
        QTest::qWait(1); // what waits to be begun
        return QTest::qWaitFor(
            [window] { return !Control(window, roadcheck::ControlId::Progress)->isVisible(); },
            60000);
    }
    // Until `holds`, for longer than a change takes to be noticed.
    template <class Holds> static bool WaitFor(const Holds& holds)
    {
        return QTest::qWaitFor(holds, 10000);
    }

    static QTableView* Findings(QWidget* window)
    {
        return Control<QTableView>(window, roadcheck::ControlId::Findings);
    }
    static int Rows(QWidget* window) { return Findings(window)->model()->rowCount(); }
    static CString Cell(QWidget* window, int row, int column)
    {
        return FromQString(Findings(window)->model()->index(row, column).data().toString());
    }
    // The row of the finding with that message; -1: none.
    static int RowOf(QWidget* window, const CString& message)
    {
        for (int row = 0; row < Rows(window); ++row)
            if (Cell(window, row, 8).find(message) != CString::npos) return row;
        return -1;
    }
    static void ClickRow(QWidget* window, int row, Qt::KeyboardModifiers modifiers = {})
    {
        QTableView* const table = Findings(window);
        const QModelIndex index = table->model()->index(row, 1);
        table->scrollTo(index);
        QTest::mouseClick(table->viewport(), Qt::LeftButton, modifiers,
                          table->visualRect(index).center());
    }
    static CString SelectedMessage(QWidget* window)
    {
        const auto rows = Findings(window)->selectionModel()->selectedRows(8);
        return rows.size() == 1 ? FromQString(rows.front().data().toString()) : CString();
    }
    static CString Text(QWidget* window, int id)
    {
        const auto* const label = Control<QLabel>(window, id);
        return label->isVisible() ? FromQString(label->text()) : CString();
    }
    // Chooses the item of that text as a user does who types it.
    static void Choose(QWidget* window, int id, const QString& text)
    {
        auto* const box = Control<QComboBox>(window, id);
        const int wanted = box->findText(text);
        ASSERT_GE(wanted, 0) << text.toStdString();
        box->setFocus();
        while (box->currentIndex() != wanted)
            QTest::keyClick(box, box->currentIndex() < wanted ? Qt::Key_Down : Qt::Key_Up);
    }

    // A file of a road behind so much terrain that reading it takes a while.
    QString SlowFile() const
    {
        std::string text = "<LandXML><Surfaces><Surface><Definition><Pnts>\n";
        for (int i = 0; i < 600000; ++i)
            text += "<P id=\"1\">3456789.123 456789.123 12.345</P>\n";
        text += "</Pnts></Definition></Surface></Surfaces>\n<Alignments><Alignment name=\"远\" "
                "length=\"10\" staStart=\"0\"><CoordGeom><Line length=\"10\"/></CoordGeom>"
                "</Alignment></Alignments></LandXML>\n";
        m_project.Write("慢.xml", text);
        return File("慢.xml");
    }

    TemporaryFolder m_project;
    TraceCapture m_trace;
    QWidget m_frame;
};
