#include "host/EditorTour.h"

#include <algorithm>

#include <QApplication>
#include <QContextMenuEvent>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpression>
#include <QTableView>
#include <QTreeWidget>

#include "base/File.h"
#include "platform/mfc/QtText.h"
#include "platform/vmrd/VMRDEnv/StyleFolder.h"
#include "platform/vmrd/VMRDPrj/StyleEditor.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

namespace {

const QString kOpensDialog = QStringLiteral("..."); // what an item ends in that asks for something

void PressReturn(QMenu* menu)
{
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(menu, &press);
}

// The texts of the menu's own items and of those of its sub-menus.
QStringList TextsOf(const QMenu* menu)
{
    QStringList texts;
    for (const QAction* item : menu->actions()) {
        texts << item->text();
        if (item->menu()) texts << TextsOf(item->menu());
    }
    return texts;
}

// Chooses the item of that text in an open menu or one of its sub-menus as Enter does.
void ChooseItem(QMenu* menu, const QString& text)
{
    for (QAction* item : menu->actions()) {
        const bool inSubMenu = item->menu() && TextsOf(item->menu()).contains(text);
        if (!item->isEnabled() || (item->text() != text && !inSubMenu)) continue;
        menu->setActiveAction(item);
        PressReturn(menu); // opens a sub-menu
        if (inSubMenu && item->menu()->isVisible()) ChooseItem(item->menu(), text);
        return;
    }
}

// The menu key on the first cell that holds a value.
void PressMenuKey(QAbstractItemView* table)
{
    table->setCurrentIndex(table->model()->index(0, 1));
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(table, &event);
}

QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void SetContent(const QString& path, const QByteArray& content)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) file.write(content);
}

template <class Widget> QList<Widget*> Usable(const QWidget& window)
{
    QList<Widget*> found = window.findChildren<Widget*>();
    found.removeIf([](const Widget* one) { return !one->isVisible() || !one->isEnabled(); });
    return found;
}

// The first file of the project's folder that the dialog would open; empty when there is none.
QString FirstFileFor(const QFileDialog& dialog)
{
    if (dialog.acceptMode() != QFileDialog::AcceptOpen) return {};
    static const QRegularExpression kPatterns(QStringLiteral("\\(([^)]*)\\)"));
    const QString patterns = kPatterns.match(dialog.selectedNameFilter()).captured(1);
    const QDir project(ToQString(VMRDPub::GetCurPrjPath()));
    const QStringList files = project.entryList(patterns.split(u' '), QDir::Files, QDir::Name);
    return files.isEmpty() ? QString() : project.absoluteFilePath(files.first());
}

// Types into the first value of the first table.
void EnterNumber(QDialog* dialog)
{
    auto* const tree = dialog->findChild<QTreeWidget*>();
    if (!tree) return;
    QList<QTableView*> tables;
    for (QTreeWidgetItemIterator item(tree); *item && tables.isEmpty(); ++item) {
        tree->setCurrentItem(*item);
        tables = Usable<QTableView>(*dialog);
    }
    if (tables.isEmpty()) return;
    tables.first()->setFocus();
    tables.first()->setCurrentIndex(tables.first()->model()->index(0, 1));
    for (const QChar digit : QStringLiteral("1200")) {
        QKeyEvent press(QEvent::KeyPress, digit.unicode(), Qt::NoModifier, digit);
        QApplication::sendEvent(dialog->focusWidget(), &press);
    }
}

} // namespace

EditorTour::EditorTour(CStyleEditor& editor, Picture picture)
    : m_editor(editor), m_picture(std::move(picture))
{
}

void EditorTour::Run(CStyle* style)
{
    const QString name = ToQString(style->Name());
    const auto edit = [this, &name](QWidget* window) {
        if (auto* const dialog = qobject_cast<QDialog*>(window)) ShowEditing(dialog, name);
    };
    VisitModals([&] { m_editor.Edit(style); }, {edit});
    if (m_editor.EnableView())
        VisitModals([&] { m_editor.View(style); }, {ShowAs(QObject::tr("查看模式"))});
    VisitModals([&] { m_editor.New(nullptr); }, {ShowAs(QObject::tr("新建"))});
    ShowOwnCommands(style);
}

// With another style beside it where a command takes several.
void EditorTour::ShowOwnCommands(const CStyle* style)
{
    const CStyles& styles = *m_editor.GetStyles();
    for (const EditorCommand& command : m_editor.OwnCommands()) {
        CArray<GUID> selected;
        if (command.most > 0) selected.push_back(style->ID());
        for (int i = 0; i < styles.Count() && selected.size() < std::min(command.most, size_t{2});
             ++i)
            if (styles.Item(i) != style) selected.push_back(styles.Item(i)->ID());
        VisitModals([&] { m_editor.RunOwn(command.id, selected); },
                    {AnswerOrShow(), ShowByTitle()});
    }
}

// What asks for a file is no window of the editor's: it gets one, for the window behind it.
ModalVisit EditorTour::AnswerOrShow()
{
    return [this](QWidget* window) {
        auto* const asking = qobject_cast<QFileDialog*>(window);
        if (!asking) return Show(window, window->windowTitle());
        const QString file = FirstFileFor(*asking);
            auto* const name = asking->findChild<QLineEdit*>();
        if (file.isEmpty() || !name) return;
        name->setText(file);
        static_cast<QDialog*>(asking)->accept();
    };
}

void EditorTour::ShowOthersChange(CStyle* style, const QString& theirs)
{
    const CString name = FromQString(QFileInfo(theirs).fileName());
    const QString path =
        QString::fromStdString(NativePath(m_editor.GetStyles()->Files().PathOf(name)));
    const QByteArray ours = Content(path);
    const QByteArray changed = Content(theirs);
    if (ours.isEmpty() || changed.isEmpty()) return;
    const auto edit = [&](QWidget* window) {
        auto* const dialog = qobject_cast<QDialog*>(window);
        if (!dialog) return;
        EnterNumber(dialog);
        SetContent(path, changed);
        VisitModals([dialog] { dialog->accept(); }, {ShowByTitle()});
        SetContent(path, ours);
        dialog->done(QDialog::Rejected); // without a question
    };
    VisitModals([&] { m_editor.Edit(style); }, {edit});
}

void EditorTour::Show(QWidget* window, const QString& name)
{
    if (m_seen.insert(name).second) m_picture(window, name);
}

ModalVisit EditorTour::ShowAs(const QString& name)
{
    return [this, name](QWidget* window) { Show(window, name); };
}

ModalVisit EditorTour::ShowByTitle()
{
    return [this](QWidget* window) { Show(window, window->windowTitle()); };
}

void EditorTour::ShowEditing(QDialog* dialog, const QString& name)
{
    if (auto* const tree = dialog->findChild<QTreeWidget*>())
        ShowPages(dialog, tree);
    else
        Show(dialog, QObject::tr("编辑"));
    ShowSearch(dialog);
    ShowAsking(dialog);
    ShowMessage(dialog, name);
}

// What a search field finds for letters that characters begin with, and the first of it.
void EditorTour::ShowSearch(QDialog* dialog)
{
    for (QLineEdit* field : Usable<QLineEdit>(*dialog)) {
        if (!field->placeholderText().contains(QStringLiteral("Ctrl+F"))) continue;
        field->setFocus();
        field->setText(QStringLiteral("zxbj"));
        QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
        QApplication::sendEvent(field, &down);
        Show(dialog, QObject::tr("查找"));
        field->clear();
        return;
    }
}

// What the window's own buttons open.
void EditorTour::ShowAsking(QDialog* dialog)
{
    for (QPushButton* button : Usable<QPushButton>(*dialog))
        if (button->text().endsWith(u'…'))
            VisitModals([button] { button->click(); }, {ShowByTitle()});
}

void EditorTour::ShowPages(QDialog* dialog, QTreeWidget* tree)
{
    for (QTreeWidgetItemIterator item(tree); *item; ++item) {
        if ((*item)->childCount() > 0) continue;
        tree->setCurrentItem(*item);
        tree->setFocus(); // where a click that selects the page puts it
        const QTreeWidgetItem* const group = (*item)->parent();
        ShowPage(dialog, (group ? group->text(0) + u'-' : QString()) + (*item)->text(0));
    }
}

void EditorTour::ShowPage(QDialog* dialog, const QString& page)
{
    Show(dialog, page);
    ShowSwitched(dialog, page);
    for (QTableView* table : Usable<QTableView>(*dialog))
        ShowMenu(table, page);
    ShowSource(dialog);
}

// What buttons show while they are down.
void EditorTour::ShowSwitched(QDialog* dialog, const QString& page)
{
    for (QPushButton* button : Usable<QPushButton>(*dialog)) {
        if (!button->isCheckable() || button->isChecked()) continue;
        button->click();
        Show(dialog, page + u'-' + button->text().section(u'(', 0, 0));
        button->click();
    }
}

void EditorTour::ShowMenu(QAbstractItemView* table, const QString& page)
{
    QStringList asking;
    const auto look = [&](QWidget* window) {
        const auto* const menu = qobject_cast<QMenu*>(window);
        if (!menu) return;
        const QStringList texts = TextsOf(menu);
        for (const QString& text : texts)
            if (text.endsWith(kOpensDialog) && m_seen.insert(text).second) asking << text;
        if (m_seen.insert(texts.join(u'\n')).second) Show(window, page + QObject::tr("-右键菜单"));
    };
    VisitModals([table] { PressMenuKey(table); }, {look});
    ShowInputDialogs(table, asking);
}

void EditorTour::ShowInputDialogs(QAbstractItemView* table, const QStringList& items)
{
    for (const QString& item : items) {
        const auto choose = [&item](QWidget* window) {
            if (auto* const menu = qobject_cast<QMenu*>(window)) ChooseItem(menu, item);
        };
        VisitModals([table] { PressMenuKey(table); }, {choose, ShowByTitle()});
    }
}

// The button with a picture alone opens the data source of the page.
void EditorTour::ShowSource(QDialog* dialog)
{
    for (QPushButton* button : Usable<QPushButton>(*dialog)) {
        if (!button->text().isEmpty() || button->icon().isNull()) continue;
        VisitModals([button] { button->click(); }, {ShowByTitle()});
        return;
    }
}

// An editor refuses an empty name before anything is stored.
void EditorTour::ShowMessage(QDialog* dialog, const QString& name)
{
    for (QLineEdit* field : Usable<QLineEdit>(*dialog)) {
        if (field->text() != name) continue;
        field->clear();
        VisitModals([dialog] { dialog->accept(); }, {ShowByTitle()});
        field->setText(name); // unchanged, it closes without a question
        return;
    }
}
