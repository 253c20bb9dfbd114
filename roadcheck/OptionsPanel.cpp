#include "roadcheck/OptionsPanel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>

#include "platform/mfc/QtText.h"
#include "roadcheck/ControlIds.h"

using namespace designspec;

namespace roadcheck {

namespace {

constexpr int kComboLetters = 9; // that a closed combo box has room for at least

// Adds it if it is not there, and makes it the current one.
void Choose(QComboBox* box, const QVariant& value, const QString& text)
{
    if (box->findData(value) < 0) box->addItem(text, value);
    box->setCurrentIndex(box->findData(value));
}

// The first item stays; what is chosen stays, too.
void Offer(QComboBox* box, const std::vector<std::pair<QVariant, QString>>& items)
{
    const QVariant chosen = box->currentData();
    const QString text = box->currentText();
    while (box->count() > 1)
        box->removeItem(1);
    for (const auto& [value, label] : items)
        if (box->findData(value) < 0) box->addItem(label, value);
    Choose(box, chosen, text);
}

QString SuperText(int percent)
{
    return QObject::tr("%1%").arg(percent);
}

} // namespace

OptionsPanel::OptionsPanel(QWidget* parent) : QWidget(parent), m_grid(new QGridLayout(this))
{
    m_grid->setContentsMargins(0, 0, 0, 0);
    m_mode = AddChoice(tr("表间取值(&M):"), ControlId::Mode, 0, 0);
    m_mode->setToolTip(tr("表中没有该车速时取哪个值; 较高车速偏于安全"));
    for (const auto& [mode, label] : {std::pair{QueryValue::Upper, tr("较高车速的值")},
                                      {QueryValue::Lower, tr("较低车速的值")},
                                      {QueryValue::Nearest, tr("最接近车速的值")},
                                      {QueryValue::Interpolate, tr("内插")},
                                      {QueryValue::Exact, tr("不取值")}})
        m_mode->addItem(label, static_cast<int>(mode));
    m_roadType = AddChoice(tr("道路类型(&T):"), ControlId::RoadType, 0, 2);
    m_roadType->setToolTip(tr("用于合成坡度"));
    for (int type = 0; type < CDSMaxResultantGrad::kRoadTypes; ++type)
        m_roadType->addItem(ToQString(RoadTypeLabel(type)), type);
    m_maxSuper = AddChoice(tr("最大超高(&X):"), ControlId::MaxSuper, 1, 0);
    m_maxSuper->setToolTip(tr("采用哪个最大超高的超高表"));
    m_maxSuper->addItem(tr("按车速"), 0);
    m_axis = AddChoice(tr("超高旋转轴(&A):"), ControlId::Axis, 1, 2);
    m_axis->addItem(tr("中线"), static_cast<int>(RunoffAxis::Centre));
    m_axis->addItem(tr("边线"), static_cast<int>(RunoffAxis::Edge));
    m_vehicle = AddChoice(tr("设计车型(&C):"), ControlId::Vehicle, 2, 0);
    m_vehicle->addItem(tr("不提示加宽"), QString());
    m_plateau = AddSwitch(tr("高原地区纵坡折减(&H)"), ControlId::Plateau, 2, 2);
    m_snow = AddSwitch(tr("积雪冰冻地区的限值(&W)"), ControlId::Snow, 3, 2);
    m_grid->setRowStretch(4, 1);
    SetOptions({});
}

QComboBox* OptionsPanel::AddChoice(const QString& label, int id, int row, int column)
{
    auto* const box = new QComboBox;
    SetControlId(box, id);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(kComboLetters);
    auto* const caption = new QLabel(label);
    caption->setBuddy(box);
    m_grid->addWidget(caption, row, column);
    m_grid->addWidget(box, row, column + 1);
    m_grid->setColumnStretch(column + 1, 1);
    connect(box, &QComboBox::activated, this, &OptionsPanel::Changed);
    return box;
}

QCheckBox* OptionsPanel::AddSwitch(const QString& label, int id, int row, int column)
{
    auto* const box = new QCheckBox(label);
    SetControlId(box, id);
    m_grid->addWidget(box, row, column, 1, 2);
    connect(box, &QCheckBox::clicked, this, &OptionsPanel::Changed);
    return box;
}

CheckOptions OptionsPanel::Options() const
{
    CheckOptions options;
    options.mode = static_cast<QueryValue::QueryMode>(m_mode->currentData().toInt());
    options.roadType =
        static_cast<CDSMaxResultantGrad::RoadType>(m_roadType->currentData().toInt());
    if (const int super = m_maxSuper->currentData().toInt()) options.maxSuper = super;
    options.axis = static_cast<RunoffAxis>(m_axis->currentData().toInt());
    options.car = FromQString(m_vehicle->currentData().toString());
    options.plateau = m_plateau->isChecked();
    options.snow = m_snow->isChecked();
    return options;
}

void OptionsPanel::SetOptions(const CheckOptions& options)
{
    Choose(m_mode, static_cast<int>(options.mode), {});
    Choose(m_roadType, static_cast<int>(options.roadType), {});
    Choose(m_maxSuper, options.maxSuper.value_or(0), SuperText(options.maxSuper.value_or(0)));
    Choose(m_axis, static_cast<int>(options.axis), {});
    Choose(m_vehicle, ToQString(options.car), ToShown(options.car));
    m_plateau->setChecked(options.plateau);
    m_snow->setChecked(options.snow);
}

void OptionsPanel::Offer(const CDesignSpecification& specification)
{
    std::vector<std::pair<QVariant, QString>> supers, vehicles;
    for (const auto& definition : specification.SuperElevation.definitions)
        supers.emplace_back(definition.maxSuperElev, SuperText(definition.maxSuperElev));
    for (const CString& vehicle : VehiclesOf(specification))
        vehicles.emplace_back(ToQString(vehicle), ToShown(vehicle));
    roadcheck::Offer(m_maxSuper, supers);
    roadcheck::Offer(m_vehicle, vehicles);
}

} // namespace roadcheck
