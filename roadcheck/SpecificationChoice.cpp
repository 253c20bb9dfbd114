#include "roadcheck/SpecificationChoice.h"

#include "library/DesignSpecifications.h"
#include "platform/mfc/QtText.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "roadcheck/LimitPage.h"

using namespace designspec;

namespace roadcheck {

namespace {

QString IdText(const CStyle& style)
{
    return ToQString(VMRDPub::GUIDToStr(style.ID()));
}

} // namespace

SpecificationChoice::SpecificationChoice(QWidget* parent) : QComboBox(parent)
{
    m_soon.setSingleShot(true);
    connect(&m_soon, &QTimer::timeout, this, &SpecificationChoice::Refresh);
    m_changed = CDesignSpecifications::ConnectChanges([this] { m_soon.start(0); });
    m_refurbished = CStyles::ConnectRefurbish([this](CStyles&) { m_soon.start(0); });
    connect(this, &QComboBox::activated, this, [this] { Choose(currentData().toString()); });
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
}

void SpecificationChoice::Choose(const QString& id)
{
    const CStyle* const standard = CDesignSpecifications::GetInstance()->DefaultItem();
    m_chosen = standard && IdText(*standard) == id ? QString() : id;
    Refresh();
}

void SpecificationChoice::Reload()
{
    if (!IsEditorLoaded()) CDesignSpecifications::GetInstance()->Update();
    Refresh();
}

void SpecificationChoice::Refresh()
{
    const CDesignSpecifications& library = *CDesignSpecifications::GetInstance();
    const CDesignSpecification* const standard = library.DefaultItem();
    const CDesignSpecification* meant = standard ? standard : library.Item(0);
    clear();
    for (int i = 0; i < library.Count(); ++i) {
        const CDesignSpecification& one = *library.Item(i);
        if (IdText(one) == m_chosen) meant = &one;
        const QString name = ToShown(one.Name());
        addItem(&one == standard ? tr("%1 (默认)").arg(name) : name, IdText(one));
    }
    setCurrentIndex(meant ? findData(IdText(*meant)) : -1);

    const bool isSame =
        meant && m_shown
            ? m_shown->ID() == meant->ID() && m_shown->Name() == meant->Name() && *m_shown == *meant
            : !meant && !m_shown;
    if (isSame) return;
    m_shown = meant ? std::optional(*meant) : std::nullopt;
    emit Changed();
}

} // namespace roadcheck
