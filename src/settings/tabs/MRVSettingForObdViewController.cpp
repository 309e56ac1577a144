// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/tabs/MRVSettingForObdViewController.h"

#include "controls/SegmentedControl.h"
#include "lib/RangeSlider/SMDoubleSlider.h"
#include "settings/FileData.h"
#include "settings/tabs/TimeZones.h"
#include "settings/window/FieldBinding.h"
#include "settings/window/TabLayout.h"
#include "texts/Localisation.h"

#include <algorithm>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

namespace marvo {

namespace {

// routeSaveInterval: the interval, 1 to 4, in the low four bits, and whether OBD stays on while parked above.
constexpr std::uint32_t intervalBits = 0x0F;
constexpr std::uint32_t parkingBits = 0xF0;
constexpr std::uint32_t parkingOn = 0x10;
constexpr std::uint32_t thirdInterval = 3;
constexpr std::uint32_t lastInterval = 4;

constexpr int columns = 3;

constexpr std::uint32_t lowestVoltageMv = 11800;
constexpr std::uint32_t voltageStepMv = 100;

QStringList voltageLabels()
{
    return {QStringLiteral("11.8v"), QStringLiteral("11.9v"), QStringLiteral("12.0v"),
            QStringLiteral("12.1v"), QStringLiteral("12.2v"), QStringLiteral("12.3v"),
            QStringLiteral("12.4v")};
}

std::vector<std::uint32_t> voltageValues()
{
    std::vector<std::uint32_t> values = indexValues(static_cast<int>(voltageLabels().size()));
    for (std::uint32_t& value : values)
        value = lowestVoltageMv + voltageStepMv * value;
    return values;
}

const std::vector<ChoiceBinding>& choices()
{
    static const std::vector<ChoiceBinding> bindings = {
        {"drivingDaySeg", &_FILEDATA::drivingDay, indexValues(8)},
        {"speedDisplayUnitSeg", &_FILEDATA::speedUnit, indexValues(2)},
        {"osdSpeedDisplaySeg", &_FILEDATA::osdSpeedDisplay, indexValues(2)},
        {"timeGmtCombo", &_FILEDATA::timeZoneIndex, indexValues(static_cast<int>(timeZoneTexts().size()))},
        {"powerVoltageCombo", &_FILEDATA::powerVoltage, voltageValues()},
    };
    return bindings;
}

const std::vector<FlagBinding>& flags()
{
    static const std::vector<FlagBinding> bindings = {
        {"summerTimeChk", &_FILEDATA::summerTime},
        {"useExternalPowerChk", &_FILEDATA::useExternalPower},
        {"useEcoDriveChk", &_FILEDATA::useEcoDrive},
    };
    return bindings;
}

/// The knobs' positions for a record's thresholds.
PercentRange ecoRange(const _FILEDATA& record)
{
    return PercentRange::clamped(100 - std::int64_t{record.ecoLow}, 100 - std::int64_t{record.ecoHigh});
}

QStringList intervalLabels()
{
    QStringList labels;
    for (const int seconds : {1, 3, 5, 10})
        labels.append(localised("nSecond_fmt").arg(seconds));
    return labels;
}

QStringList offOn() { return localisedList({"off", "on"}); }

QLabel* namedLabel(const char* name)
{
    auto* label = new QLabel;
    label->setObjectName(QLatin1String(name));
    return label;
}

QWidget* row(std::initializer_list<QWidget*> contents)
{
    auto* view = new QWidget;
    auto* layout = new QHBoxLayout(view);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(16);
    for (QWidget* content : contents)
        layout->addWidget(content);
    layout->addStretch();
    return view;
}

} // namespace

// ---- the controls

MRVSettingForObdViewController::MRVSettingForObdViewController(QWidget* parent)
    : SettingsTabView(parent),
      m_saveDurationSeg(segmentedControl("saveDurationSeg", "setting.obd.driving_route_info_saving_interval",
                                         intervalLabels())),
      m_useObdParkingSeg(segmentedControl("useObdParkingSeg", "setting.obd.obd_on_parking_mode", offOn()))
{
    auto* page = new QGridLayout(this);
    page->setContentsMargins(0, 0, 0, 0);
    page->setSpacing(12);
    page->addWidget(guideLabel("obdGuide1Field", "setting.obd.obd_guide1"), 0, 0, 1, columns);
    const QStringList days = localisedList({"none", "mon", "tue", "wed", "thu", "fri", "sat", "sun"});
    page->addWidget(titledBoxWith("boxOfDay", "setting.obd.weekly_alarm",
                                  {segmentedControl("drivingDaySeg", "setting.obd.weekly_alarm", days)}),
                    1, 0, 1, columns);
    page->addWidget(timeBox(), 2, 0);
    page->addWidget(titledBoxWith("boxOfSpeedDisplayUnit", "setting.obd.speed_display",
                                  {segmentedControl("speedDisplayUnitSeg", "setting.obd.speed_display",
                                                    {QStringLiteral("Km/h"), QStringLiteral("Mi/h")}),
                                   guideLabel("speedGuide1Field", "setting.obd.obd_speed_guide1")}),
                    2, 1);
    page->addWidget(
        titledBoxWith("boxOfObdSpeedDisplay", "setting.obd.osd_speed_display",
                      {segmentedControl("osdSpeedDisplaySeg", "setting.obd.osd_speed_display", offOn())}),
        2, 2);
    page->addWidget(powerBox(), 3, 0);
    page->addWidget(
        titledBoxWith("boxOfNightTime", "setting.obd.obd_on_parking_mode",
                      {m_useObdParkingSeg, guideLabel("obdGuide2Field", "setting.obd.obd_guide2")}),
        3, 1);
    page->addWidget(titledBoxWith("boxOfSaveDuration", "setting.obd.driving_route_info_saving_interval",
                                  {m_saveDurationSeg}),
                    3, 2);
    page->addWidget(ecoBox(), 4, 0, 1, columns);
    for (int column = 0; column < columns; ++column)
        page->setColumnStretch(column, 1);
    page->setRowStretch(5, 1);

    m_ecoSlider->bind(SMDoubleSlider::Binding::ObjectLoValue, this, "ecoLoValue");
    m_ecoSlider->bind(SMDoubleSlider::Binding::ObjectHiValue, this, "ecoHiValue");
    connect(this, &MRVSettingForObdViewController::ecoLoValueChanged, this,
            &MRVSettingForObdViewController::updateEco);
    connect(this, &MRVSettingForObdViewController::ecoHiValueChanged, this,
            &MRVSettingForObdViewController::updateEco);
}

QWidget* MRVSettingForObdViewController::timeBox()
{
    return titledBoxWith("boxOfTime", "setting.obd.timezone_setting",
                         {row({comboBox("timeGmtCombo", "setting.obd.timezone_accessible", timeZoneTexts()),
                               checkBox("summerTimeChk", "summerTime")}),
                          guideLabel("timeGuide1Field", "setting.obd.obd_time_guide1")});
}

QWidget* MRVSettingForObdViewController::powerBox()
{
    // The record has the flag, but a camera with OBD offers no choice.
    auto* externalPower = checkBox("useExternalPowerChk", "setting.basic.use_external_power");
    externalPower->hide();
    return titledBoxWith(
        "boxOfPower", "setting.obd.cutoff_voltage_setting",
        {row({comboBox("powerVoltageCombo", "setting.obd.cutoff_voltage_setting", voltageLabels())}),
         externalPower, guideLabel("powerGuide1Field", "setting.obd.obd_power_guide1")});
}

QWidget* MRVSettingForObdViewController::ecoBox()
{
    const PercentSlider eco = percentSlider("ecoSlider", "ecoSliderAxisView", "setting.obd.eco_thresholds");
    m_ecoSlider = eco.slider;
    m_ecoDriveLabel = namedLabel("ecoDriveLabel");
    m_normalDriveLabel = namedLabel("normalDriveLabel");
    m_unecoDriveLabel = namedLabel("unecoDriveLabel");
    return titledBoxWith("boxOfEcoDrive", "setting.obd.eco_drive",
                         {checkBox("useEcoDriveChk", "setting.obd.use_ecodrive"), eco.view,
                          row({m_ecoDriveLabel, m_normalDriveLabel, m_unecoDriveLabel})});
}

// ---- the record

void MRVSettingForObdViewController::displayFileData(const _FILEDATA& record)
{
    showChoices(*this, choices(), record);
    showFlags(*this, flags(), record);
    // A stored 3 is taken for the last interval, and OBD while parked for off.
    if ((record.routeSaveInterval & intervalBits) == thirdInterval)
        fileData()->routeSaveInterval = lastInterval;
    showRouteSaving(fileData()->routeSaveInterval);
    m_eco = ecoRange(record);
    Q_EMIT ecoLoValueChanged();
    Q_EMIT ecoHiValueChanged();
}

void MRVSettingForObdViewController::storeControls(_FILEDATA& record)
{
    storeChoices(*this, choices(), record);
    storeFlags(*this, flags(), record);
    record.routeSaveInterval = routeSaving(record.routeSaveInterval);
    // Thresholds that the slider cannot show stay until a knob is moved.
    if (m_eco != ecoRange(record)) {
        record.ecoLow = static_cast<std::uint32_t>(100 - m_eco.lo);
        record.ecoHigh = static_cast<std::uint32_t>(100 - m_eco.hi);
    }
}

void MRVSettingForObdViewController::showRouteSaving(std::uint32_t routeSaveInterval)
{
    m_saveDurationSeg->setSelectedSegment(static_cast<int>(routeSaveInterval & intervalBits) - 1);
    m_useObdParkingSeg->setSelectedSegment((routeSaveInterval & parkingBits) == parkingOn ? 1 : 0);
}

std::uint32_t MRVSettingForObdViewController::routeSaving(std::uint32_t stored) const
{
    const int segment = m_saveDurationSeg->selectedSegment();
    const bool isShort = segment >= 0 && segment < static_cast<int>(thirdInterval);
    const std::uint32_t interval = isShort ? static_cast<std::uint32_t>(segment) + 1 : lastInterval;
    if (m_useObdParkingSeg->selectedSegment() == 1)
        return (stored & parkingBits) | parkingOn | interval;
    return interval;
}

// ---- eco driving

void MRVSettingForObdViewController::setEcoLoValue(int value)
{
    value = PercentRange::clamped(value, m_eco.hi).lo;
    if (value == m_eco.lo)
        return;
    m_eco.lo = value;
    Q_EMIT ecoLoValueChanged();
}

void MRVSettingForObdViewController::setEcoHiValue(int value)
{
    value = PercentRange::clamped(m_eco.lo, std::max(value, m_eco.lo)).hi;
    if (value == m_eco.hi)
        return;
    m_eco.hi = value;
    Q_EMIT ecoHiValueChanged();
}

void MRVSettingForObdViewController::updateEco()
{
    // The high knob first: the low one cannot pass it.
    m_ecoSlider->setIntegerHiValue(m_eco.hi);
    m_ecoSlider->setIntegerLoValue(m_eco.lo);
    const double eco = (100 - m_eco.lo) / 100.0;
    const double uneco = (100 - m_eco.hi) / 100.0;
    m_ecoDriveLabel->setText(QString::asprintf("Eco Drive : %.2f ", eco) + localised("over"));
    m_normalDriveLabel->setText(QString::asprintf("Normal Drive : %.2f ~ %.2f", eco, uneco));
    m_unecoDriveLabel->setText(QString::asprintf("Uneco Drive : %.2f ", uneco) + localised("under"));
}

} // namespace marvo
