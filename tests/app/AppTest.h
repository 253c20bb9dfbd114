// A library in a project folder, and a host's frame window.
#pragma once

#include <algorithm>

#include <QApplication>
#include <QSettings>
#include <QTest>
#include <QTreeWidget>

#include "platform/arx/Documents.h"
#include "platform/arx/Frame.h"
#include "tests/gui/Controls.h"
#include "tests/gui/Modal.h"
#include "tests/support/LibraryTest.h"

class AppTest : public LibraryTest {
protected:
    AppTest()
    {
        QSettings().clear(); // dialogs open as they do the first time
        m_frame.resize(400, 300);
        m_frame.show();
        designspec::SetFrame(&m_frame);
    }
    ~AppTest() override { EXPECT_EQ(Locks(), 0); }

    static int Locks() { return acDocManager->curDocument()->LockCount(); }

    static QTreeWidget* Tree(QWidget* window) { return Control<QTreeWidget>(window, 100); }
    // The tree's items from top to bottom: "平面", "  直线长度" …
    static std::vector<std::string> TreeLines(QWidget* window)
    {
        std::vector<std::string> lines;
        const QTreeWidget* const tree = Tree(window);
        for (int i = 0; i < tree->topLevelItemCount(); ++i) {
            const QTreeWidgetItem* const group = tree->topLevelItem(i);
            lines.push_back(group->text(0).toStdString());
            for (int j = 0; j < group->childCount(); ++j)
                lines.push_back("  " + group->child(j)->text(0).toStdString());
        }
        return lines;
    }
    static QTreeWidgetItem* Item(QWidget* window, const char* text)
    {
        const auto found =
            Tree(window)->findItems(QString::fromUtf8(text), Qt::MatchExactly | Qt::MatchRecursive);
        if (found.size() == 1) return found.front();
        ADD_FAILURE() << found.size() << " items " << text;
        return nullptr;
    }
    static void ClickItem(QWidget* window, const char* text)
    {
        QTreeWidget* const tree = Tree(window);
        QTreeWidgetItem* const item = Item(window, text);
        if (item->parent()) item->parent()->setExpanded(true);
        tree->scrollToItem(item);
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                          tree->visualItemRect(item).center());
    }
    static std::string SelectedItem(QWidget* window)
    {
        return Tree(window)->currentItem()->text(0).toStdString();
    }

    // The library's files, without the setting and what is set aside.
    int SpecificationFiles() const
    {
        const std::filesystem::path folder = m_project.Native("规范");
        if (!std::filesystem::exists(folder)) return 0;
        const std::filesystem::directory_iterator files(folder);
        return static_cast<int>(std::count_if(begin(files), end(files), [](const auto& file) {
            return file.path().extension() == ".hds";
        }));
    }

    QWidget m_frame;
};
