// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/tabs/MRVSettingForBasicViewController.h"

#include "controls/MessageSheet.h"
#include "controls/SegmentedControl.h"
#include "settings/CarNumber.h"
#include "settings/FileData.h"
#include "settings/tabs/GsensorSensitivityBox.h"
#include "settings/window/FieldBinding.h"
#include "settings/window/MRVCarNumberTextField.h"
#include "settings/window/TabLayout.h"
#include "texts/Localisation.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace marvo {

namespace {

/// A fallback is shown, and stored, for every value without an item.
const std::vector<ChoiceBinding>& choices()
{
    static const std::vector<ChoiceBinding> bindings = {
        {"displayscreenSeg", &_FILEDATA::displayScreen, indexValues(4)},
        {"recordingmodeSeg", &_FILEDATA::recordingMode, indexValues(2)},
        {"stanbyTimeCombo", &_FILEDATA::alwaysModeTimeout, {180, 300, 420, 600, 900}, {2}},
        {"compositeModeSeg", &_FILEDATA::compositeMode, indexValues(2)},
        {"powerVoltageCombo",
         &_FILEDATA::powerVoltage,
         {0, 11600, 11700, 11800, 11900, 12000, 12100, 12200, 12300, 12400},
         {1}},
        {"powerTimeCombo", &_FILEDATA::powerTime, {0, 12, 24, 36, 48}, {0}},
    };
    return bindings;
}

const std::vector<FlagBinding>& flags()
{
    static const std::vector<FlagBinding> bindings = {
        {"gsensorEnableChk", &_FILEDATA::gsensorEnable},
        {"ledOffChk", &_FILEDATA::securityLedOff, FlagBinding::Sense::Inverted},
        {"safeTemperatureModeOnChk", &_FILEDATA::safeTemperatureMode},
        {"autoDrivingModeChk", &_FILEDATA::autoDrivingMode},
        {"autoParkingModeChk", &_FILEDATA::autoParkingMode},
        {"useExternalPowerChk", &_FILEDATA::useExternalPower},
    };
    return bindings;
}

/// The cut-off voltages of a 12 V and a 24 V vehicle.
QStringList powerVoltageLabels()
{
    QStringList labels = {localised("unuse")};
    for (int decivolts = 116; decivolts <= 124; ++decivolts) {
        labels.append(
            QStringLiteral("%1v / %2v")
                .arg(QString::number(decivolts / 10.0, 'f', 1), QString::number(decivolts / 5.0, 'f', 1)));
    }
    return labels;
}

QStringList powerTimeLabels()
{
    QStringList labels = {localised("unuse")};
    for (const int hours : {12, 24, 36, 48})
        labels.append(localised("nHour_fmt").arg(hours));
    return labels;
}

/// With replacement characters where the bytes are not UTF-8.
QString carNumberText(const _FILEDATA& record)
{
    const auto end = std::find(record.carNumber.begin(), record.carNumber.end(), '\0');
    return QString::fromUtf8(record.carNumber.data(), end - record.carNumber.begin());
}

QGridLayout* captionedRows(std::initializer_list<std::pair<QLabel*, QWidget*>> rows)
{
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(8);
    grid->setColumnStretch(1, 1);
    int line = 0;
    for (const auto& [caption, control] : rows) {
        grid->addWidget(caption, line, 0);
        grid->addWidget(control, line, 1);
        ++line;
    }
    return grid;
}

QVBoxLayout* layoutOf(QGroupBox* box) { return static_cast<QVBoxLayout*>(box->layout()); }

QVBoxLayout* column(std::initializer_list<QWidget*> parts)
{
    auto* layout = new QVBoxLayout;
    layout->setSpacing(10);
    for (QWidget* part : parts)
        layout->addWidget(part);
    layout->addStretch();
    return layout;
}

} // namespace

MRVSettingForBasicViewController::MRVSettingForBasicViewController(QWidget* parent) : SettingsTabView(parent)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(12);
    layout->addLayout(column({displayBox(), recordingModeBox(), etcBox(), videoOutBox()}), 1);
    layout->addLayout(column({impactPart(), powerBox()}), 1);
}

QGroupBox* MRVSettingForBasicViewController::displayBox()
{
    QGroupBox* box = titledBox("boxOfDisplayScreen", "setting.basic.display_setting", this);
    box->layout()->addWidget(segmentedControl(
        "displayscreenSeg", "setting.basic.display_setting",
        localisedList({"setting.basic.display_setting_speed_time_date",
                       "setting.basic.display_setting_speed_time", "setting.basic.display_setting_speed_date",
                       "setting.basic.display_setting_time"})));
    return box;
}

QGroupBox* MRVSettingForBasicViewController::recordingModeBox()
{
    QGroupBox* box = titledBox("boxOfRecordingMode", "setting.basic.recordimg_mode", this);
    box->layout()->addWidget(
        segmentedControl("recordingmodeSeg", "setting.basic.recordimg_mode",
                         localisedList({"setting.basic.always_event", "setting.basic.event_only"})));
    return box;
}

QGroupBox* MRVSettingForBasicViewController::etcBox()
{
    QGroupBox* box = titledBox("boxOfEtc", "setting.basic.others", this);
    // toggled(), not clicked(): assistive technology toggles without a click.
    QCheckBox* safeTemperature =
        checkBox("safeTemperatureModeOnChk", "setting.basic.enable_high_temperature_safety_mode");
    connect(safeTemperature, &QCheckBox::toggled, this,
            &MRVSettingForBasicViewController::clickSafeTemperatureModeChck);
    QCheckBox* autoParking = checkBox("autoParkingModeChk", "setting.basic.auto_switch_parking_mode");
    connect(autoParking, &QCheckBox::toggled, this,
            &MRVSettingForBasicViewController::clickAutoParkingModeChk);

    m_stanbyTimeCombo =
        comboBox("stanbyTimeCombo", "setting.basic.stanby_time_parking_mode",
                 localisedList({"setting.basic.3min", "setting.basic.5min", "setting.basic.7min",
                                "setting.basic.10min", "setting.basic.15min"}));
    m_stanbyTimeCombo->setPlaceholderText(localised("setting.basic.stanby_time"));

    m_carNumberField = new MRVCarNumberTextField;
    m_carNumberField->setObjectName(QStringLiteral("carNumberField"));
    m_carNumberField->setAccessibleName(localised("setting.basic.car_number_input"));
    m_carNumberField->setMinimumWidth(
        m_carNumberField->fontMetrics().horizontalAdvance(QString(carNumberLength + 2, u'W')));
    connect(m_carNumberField, &QLineEdit::textEdited, this, [this] { m_carNumberTouched = true; });
    // Assistive technology sets the text without editing it; the field's own filter is no edit.
    connect(m_carNumberField, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_carNumberTouched |=
            !isDisplaying() && text != m_shownCarNumber && text != keptCarNumber(m_shownCarNumber);
    });
    connect(m_carNumberField, &QLineEdit::editingFinished, this,
            &MRVSettingForBasicViewController::carNumberEditingFinished);

    for (QCheckBox* check :
         {checkBox("ledOffChk", "setting.basic.enable_security_led"), safeTemperature,
          checkBox("autoDrivingModeChk", "setting.basic.auto_switch_driving_mode"), autoParking})
        box->layout()->addWidget(check);
    layoutOf(box)->addLayout(captionedRows(
        {{captionLabel("stanbyTimeField", "setting.basic.stanby_time_parking_mode", m_stanbyTimeCombo),
          m_stanbyTimeCombo},
         {captionLabel("carNumberLabelField", "setting.basic.car_number_input", m_carNumberField),
          m_carNumberField}}));
    return box;
}

QGroupBox* MRVSettingForBasicViewController::videoOutBox()
{
    QGroupBox* box = titledBox("boxOfVideoOut", "setting.basic.video_out", this);
    box->layout()->addWidget(
        segmentedControl("compositeModeSeg", "setting.basic.video_out",
                         localisedList({"setting.basic.video_out_ntsc", "setting.basic.video_out_pal"})));
    box->layout()->addWidget(guideLabel("videoOutGuideField", "setting.basic.video_out_use"));
    return box;
}

QWidget* MRVSettingForBasicViewController::impactPart()
{
    m_gsensorEnableChk = checkBox("gsensorEnableChk", "setting.basic.enable_gsensor");
    connect(m_gsensorEnableChk, &QCheckBox::toggled, this,
            &MRVSettingForBasicViewController::changeGsensorEnable);
    m_drivingBox = new GsensorSensitivityBox(drivingSensitivity);
    m_parkingBox = new GsensorSensitivityBox(parkingSensitivity);
    auto* part = new QWidget(this);
    part->setLayout(column({m_gsensorEnableChk, m_drivingBox, m_parkingBox}));
    part->layout()->setContentsMargins(0, 0, 0, 0);
    return part;
}

QGroupBox* MRVSettingForBasicViewController::powerBox()
{
    QGroupBox* box = titledBox("boxOfPower", "setting.basic.cutoff_voltage_setting", this);
    m_powerVoltageCombo = comboBox("powerVoltageCombo", "setting.basic.set_voltage", powerVoltageLabels());
    m_powerTimeCombo = comboBox("powerTimeCombo", "setting.basic.set_timer", powerTimeLabels());
    m_useExternalPowerChk = checkBox("useExternalPowerChk", "setting.basic.use_external_power");
    connect(m_useExternalPowerChk, &QCheckBox::toggled, this,
            &MRVSettingForBasicViewController::clickUseExternalPowerChk);
    layoutOf(box)->addLayout(captionedRows(
        {{captionLabel("powerVoltageLabel", "setting.basic.set_voltage", m_powerVoltageCombo),
          m_powerVoltageCombo},
         {captionLabel("powerTimeLabel", "setting.basic.set_timer", m_powerTimeCombo), m_powerTimeCombo}}));
    box->layout()->addWidget(m_useExternalPowerChk);
    box->layout()->addWidget(guideLabel("powerGuide1Field", "setting.basic.power_guide"));
    return box;
}

void MRVSettingForBasicViewController::displayFileData(const _FILEDATA& record)
{
    showChoices(*this, choices(), record);
    showFlags(*this, flags(), record);
    m_drivingBox->displayThresholds(record);
    m_parkingBox->displayThresholds(record);
    changeGsensorEnable();
    m_stanbyTimeCombo->setEnabled(record.autoParkingMode != 0);
    displayCarNumber(record);
    updatePowerUI(record);
}

std::optional<QString> MRVSettingForBasicViewController::validateUserInput()
{
    if (auto message = m_drivingBox->validateUserInput())
        return message;
    return m_parkingBox->validateUserInput();
}

void MRVSettingForBasicViewController::storeControls(_FILEDATA& record)
{
    storeChoices(*this, choices(), record);
    storeFlags(*this, flags(), record);
    m_drivingBox->storeThresholds(record);
    m_parkingBox->storeThresholds(record);
    storeCarNumber(record);
}

void MRVSettingForBasicViewController::changeGsensorEnable()
{
    using Sensor = GsensorSensitivityBox::Sensor;
    const Sensor sensor = m_gsensorEnableChk->isChecked() ? Sensor::On : Sensor::Off;
    m_drivingBox->setSensor(sensor);
    m_parkingBox->setSensor(sensor);
}

void MRVSettingForBasicViewController::updatePowerUI(const _FILEDATA& record)
{
    const bool isExternal = record.useExternalPower == 1;
    m_useExternalPowerChk->setChecked(isExternal);
    m_powerVoltageCombo->setEnabled(!isExternal);
    m_powerTimeCombo->setEnabled(!isExternal);
}

void MRVSettingForBasicViewController::clickAutoParkingModeChk(bool checked)
{
    if (fileData() && !isDisplaying())
        fileData()->autoParkingMode = checked ? 1 : 0;
    m_stanbyTimeCombo->setEnabled(checked);
}

void MRVSettingForBasicViewController::clickUseExternalPowerChk(bool checked)
{
    if (!fileData() || isDisplaying())
        return;
    fileData()->useExternalPower = checked ? 1 : 0;
    updatePowerUI(*fileData());
}

void MRVSettingForBasicViewController::clickSafeTemperatureModeChck(bool checked)
{
    if (isDisplaying())
        return;
    showMessageSheet(
        window(), QStringLiteral("Info"),
        localised(checked ? "msg.on_hightemperatureprotection" : "msg.off_hightemperatureprotection"));
}

void MRVSettingForBasicViewController::displayCarNumber(const _FILEDATA& record)
{
    m_shownCarNumber = carNumberText(record);
    m_carNumberTouched = false;
    m_carNumberField->setText(m_shownCarNumber);
}

void MRVSettingForBasicViewController::carNumberEditingFinished()
{
    // The field has dropped unsupported characters. An unedited number is restored.
    if (!m_carNumberTouched)
        m_carNumberField->setText(m_shownCarNumber);
}

void MRVSettingForBasicViewController::storeCarNumber(_FILEDATA& record) const
{
    // The record may hold bytes that are no text; unedited, they stay.
    if (m_carNumberField->text() == carNumberText(record))
        return;
    const QByteArray kept = keptCarNumber(m_carNumberField->text()).toLatin1();
    record.carNumber.fill('\0');
    std::copy(kept.begin(), kept.end(), record.carNumber.begin());
}

} // namespace marvo
