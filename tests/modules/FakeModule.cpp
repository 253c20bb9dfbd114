// A module as the family's are: loads the project module, publishes a group with an editor.
//
// FakeModule.ini beside the programs says what its editor refuses: Enable/KEY=0. Commands of its
// own it has with Enable/Own=1.
#include <utility>

#include <QDialog>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/File.h"
#include "base/Profile.h"
#include "base/Text.h"
#include "platform/arx/ArxApp.h"
#include "platform/arx/Documents.h"
#include "platform/arx/Frame.h"
#include "platform/arx/Modeler.h"
#include "platform/arx/Modules.h"
#include "platform/mfc/Menu.h"
#include "platform/mfc/MessageBox.h"
#include "platform/mfc/QtText.h"
#include "platform/vmrd/VMRDPrj/PrjManager.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "tests/modules/FakeLibrary.h"

using namespace designspec;

namespace {

constexpr int kNameId = 108;
constexpr unsigned kOwnCommand = 4999;

bool Enabled(const wchar_t* what, const wchar_t* usually = L"1")
{
    const CString file = VMRDPub::GetInstallPath() + L"\\FakeModule.ini";
    designspec::Problems problems;
    return GetPrivateProfileString(L"Enable", what, usually, file, problems) != L"0";
}

class NameDialog : public QDialog {
public:
    NameDialog(const CString& name, const CString& title) : QDialog(acedGetAcadFrame())
    {
        setWindowTitle(ToQString(title));
        m_name = new QLineEdit(ToQString(name));
        m_name->setProperty("controlId", kNameId);
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        buttons->button(QDialogButtonBox::Ok)->setProperty("controlId", IDOK);
        buttons->button(QDialogButtonBox::Cancel)->setProperty("controlId", IDCANCEL);
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(m_name);
        layout->addWidget(buttons);
        connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    }
    CString Name() const { return FromQString(m_name->text()); }
    void accept() override
    {
        if (!Name().empty()) return QDialog::accept();
        MessageBox(this, L"名称不能为空!", L"提示", MB_ICONINFORMATION);
    }

private:
    QLineEdit* m_name;
};

class CFakeEditor : public CStyleEditor {
public:
    CStyles* GetStyles() const override { return &m_styles; }

    CStyle* New(CStyle* from) override
    {
        const AcAxDocLock lock;
        NameDialog dialog(from ? from->Name() + L"[副本]" : L"新样式", L"新建");
        if (dialog.exec() != QDialog::Accepted) return nullptr;
        CStyle* const made = m_styles.Add(dialog.Name());
        m_styles.Refurbish();
        return made;
    }

    bool Delete(CStyle* style) override
    {
        const bool done = m_styles.Remove(style);
        if (done) m_styles.Refurbish();
        return done;
    }

    void Edit(CStyle* style) override
    {
        const AcAxDocLock lock;
        NameDialog dialog(style->Name(), L"编辑");
        if (dialog.exec() != QDialog::Accepted) return;
        m_edited = {style->ID(), style->Name()};
        m_styles.Rename(static_cast<CFakeStyle&>(*style), dialog.Name());
        m_styles.Refurbish();
    }

    void View(CStyle* style) override
    {
        NameDialog dialog(style->Name(), L"查看");
        dialog.exec();
    }

    bool AdjustContextMenu(CMenu* menu) override
    {
        menu->AppendMenu(MF_STRING, kOwnCommand, L"试验命令");
        return menu->ModifyMenu(kCommandSetAsDefaultStyle, MF_STRING, kCommandSetAsDefaultStyle,
                                L"设为默认试验");
    }

    bool OnCommand(unsigned command, CStyle* style) override
    {
        if (command != kOwnCommand || !style) return false;
        m_styles.Rename(static_cast<CFakeStyle&>(*style), style->Name() + L"!");
        return true;
    }

    std::span<const EditorCommand> OwnCommands() const override
    {
        static constexpr EditorCommand kOwn[] = {
            {kCommandsOfEditor, L"数一数…", "Ctrl+Shift+X"},
            {kCommandsOfEditor + 1, L"标记", "Ctrl+Shift+Y", 1, 2},
        };
        if (!Enabled(L"Own", L"0")) return {};
        return kOwn;
    }

    // Only tells what it was told.
    void BeginUndo() override { m_imported.clear(); }
    void EndUndo(const CString& text) override
    {
        if (Enabled(L"Own", L"0")) m_imported = text;
    }
    CString UndoText() const override
    {
        if (!m_imported.empty()) return m_imported;
        return Enabled(L"Own", L"0") && !m_edited.second.empty() ? L"已保存。" : L"";
    }
    CString Undo() override
    {
        if (!std::exchange(m_imported, {}).empty()) return L"已撤销导入。";
        m_styles.Rename(*m_styles.Item(m_edited.first), m_edited.second);
        m_styles.Refurbish();
        m_edited = {};
        return L"已撤销。";
    }
    bool EnableViewDeleted() const override { return Enabled(L"Own", L"0"); }
    void ViewDeleted(const GUID& id) override
    {
        NameDialog dialog(VMRDPub::GUIDToStr(id), L"查看已删除的");
        dialog.exec();
    }

    CString RunOwn(unsigned command, const CArray<GUID>& selected) override
    {
        if (command == kCommandsOfEditor) return std::to_wstring(selected.size());
        for (const GUID& id : selected)
            m_styles.Rename(*m_styles.Item(id), m_styles.Item(id)->Name() + L"?");
        return {};
    }

    // A name on each line, and that of the one it is compared with behind a minus.
    bool WriteReport(const CString& path, const CArray<GUID>& styles, const GUID* comparedWith,
                     Problems& problems) override
    {
        CString text;
        for (const GUID& id : styles)
            text += m_styles.Item(id)->Name() + L"\n";
        if (comparedWith) text += L"-" + m_styles.Item(*comparedWith)->Name() + L"\n";
        return WriteWholeFile(path, ToUtf8(text), problems);
    }

    bool EnableNew() const override { return Enabled(L"New"); }
    bool EnableEdit() const override { return Enabled(L"Edit"); }
    bool EnableNewFrom() const override { return Enabled(L"NewFrom"); }
    bool EnableAsDefaultStyle() const override { return Enabled(L"Default"); }
    bool EnableDel() const override { return Enabled(L"Del"); }
    bool EnableExport() const override { return Enabled(L"Export"); }
    bool EnableView() const override { return Enabled(L"View"); }

private:
    mutable CFakeStyles m_styles;
    std::pair<GUID, CString> m_edited;
    CString m_imported; // and its name before
};

class CFakeGroup : public CStyleGroup {
public:
    CString Name() const override { return L"试验组"; }
    bool HasStyles() const override { return true; }
};

class CFakeApp : public AcRxArxApp {
public:
    AcRx::AppRetCode On_kInitAppMsg(void* packet) override
    {
        acdbModelerStart();
        if (!acrxLoadModule(L"VMRDPrj.arx", false, false)) return AcRx::kRetError;
        const AcRx::AppRetCode kept = AcRxArxApp::On_kInitAppMsg(packet);
        CStyleManager* const manager = CPrjManager::GetInstance()->GetStyleManager();
        const StyleGroupConfig* const config = manager->FindStyleGroup(L"CFakeGroup", false);
        if (!config) return kept;
        m_group = new CFakeGroup;
        if (config->FindStyleGroup(L"CFakeEditor", false)) m_group->AddStyles(new CFakeEditor);
        manager->AddObject(static_cast<CStyleManager::EType>(100), m_group);
        m_group->Refurbish();
        return kept;
    }

    AcRx::AppRetCode On_kUnloadAppMsg(void* packet) override
    {
        const AcRx::AppRetCode kept = AcRxArxApp::On_kUnloadAppMsg(packet);
        CPrjManager::GetInstance()->GetStyleManager()->RemoveObject(m_group, true);
        m_group = nullptr;
        acrxUnloadModule(L"VMRDPrj.arx", false);
        return kept;
    }

private:
    CStyleGroup* m_group = nullptr;
};

} // namespace

IMPLEMENT_ARX_ENTRYPOINT(CFakeApp)
