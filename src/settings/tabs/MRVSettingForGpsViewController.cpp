// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/tabs/MRVSettingForGpsViewController.h"

#include "controls/SegmentedControl.h"
#include "settings/FileData.h"
#include "settings/tabs/TimeZones.h"
#include "settings/window/FieldBinding.h"
#include "settings/window/TabLayout.h"
#include "texts/Localisation.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

namespace marvo {

namespace {

/// The record holds the index of each choice. The camera with an OBD adapter packs the saving interval
/// differently; such a value has no segment here and is kept.
const std::vector<ChoiceBinding>& choices()
{
    static const std::vector<ChoiceBinding> bindings = {
        {"drivingDaySeg", &_FILEDATA::drivingDay, indexValues(8)},
        {"speedDisplayUnitSeg", &_FILEDATA::speedUnit, indexValues(2)},
        {"osdSpeedDisplaySeg", &_FILEDATA::osdSpeedDisplay, indexValues(2)},
        {"timeGmtCombo", &_FILEDATA::timeZoneIndex, indexValues(static_cast<int>(timeZoneTexts().size()))},
        {"saveDurationSeg", &_FILEDATA::routeSaveInterval, indexValues(8)},
        {"nightTimeSeg", &_FILEDATA::gpsOnParkingMode, indexValues(2)},
    };
    return bindings;
}

const std::vector<FlagBinding>& flags()
{
    static const std::vector<FlagBinding> bindings = {{"summerTimeChk", &_FILEDATA::summerTime}};
    return bindings;
}

QStringList savingIntervalLabels()
{
    QStringList labels = {localised("none")};
    for (const int seconds : {1, 3, 5, 10, 15, 30, 60})
        labels.append(localised("nSecond_fmt").arg(seconds));
    return labels;
}

} // namespace

MRVSettingForGpsViewController::MRVSettingForGpsViewController(QWidget* parent) : SettingsTabView(parent)
{
    QGroupBox* dayBox = titledBoxWith(
        "boxOfDay", "setting.gps.weekly_alarm",
        {segmentedControl("drivingDaySeg", "setting.gps.weekly_alarm",
                          localisedList({"none", "mon", "tue", "wed", "thu", "fri", "sat", "sun"}))});
    QGroupBox* unitBox = titledBoxWith("boxOfSpeedDisplayUnit", "setting.gps.speed_display",
                                       {segmentedControl("speedDisplayUnitSeg", "setting.gps.speed_display",
                                                         {QStringLiteral("Km/h"), QStringLiteral("Mi/h")}),
                                        guideLabel("speedGuide1Field", "setting.gps.gps_speed_guide1")});
    QGroupBox* osdBox = titledBoxWith("boxOfGpsSpeedDisplay", "setting.gps.osd_speed_display",
                                      {segmentedControl("osdSpeedDisplaySeg", "setting.gps.osd_speed_display",
                                                        localisedList({"off", "on"}))});
    auto* zone = new QWidget;
    auto* zoneRow = new QHBoxLayout(zone);
    zoneRow->setContentsMargins(0, 0, 0, 0);
    zoneRow->setSpacing(16);
    zoneRow->addWidget(comboBox("timeGmtCombo", "setting.gps.timezone_accessible", timeZoneTexts()), 1);
    zoneRow->addWidget(checkBox("summerTimeChk", "summerTime"));
    QGroupBox* timeBox = titledBoxWith("boxOfTime", "setting.gps.timezone_setting",
                                       {zone, guideLabel("timeGuide1Field", "setting.gps.gps_time_guide1")});
    QGroupBox* intervalBox =
        titledBoxWith("boxOfSaveDuration", "setting.gps.driving_route_info_saving_interval",
                      {segmentedControl("saveDurationSeg", "setting.gps.driving_route_info_saving_interval",
                                        savingIntervalLabels())});
    QGroupBox* parkingBox = titledBoxWith(
        "boxOfNightTime", "setting.gps.gps_on_parking_mode",
        {segmentedControl("nightTimeSeg", "setting.gps.gps_on_parking_mode", localisedList({"off", "on"})),
         guideLabel("gpsGuide2Field", "setting.gps.gps_guide2")});

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(12);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    grid->addWidget(guideLabel("gpsGuide1Field", "setting.gps.gps_guide1"), 0, 0, 1, 2);
    grid->addWidget(dayBox, 1, 0, 1, 2);
    grid->addWidget(timeBox, 2, 0);
    grid->addWidget(unitBox, 2, 1);
    grid->addWidget(intervalBox, 3, 0, 1, 2);
    grid->addWidget(osdBox, 4, 0);
    grid->addWidget(parkingBox, 4, 1);
    grid->setRowStretch(5, 1);
}

void MRVSettingForGpsViewController::displayFileData(const _FILEDATA& record)
{
    showChoices(*this, choices(), record);
    showFlags(*this, flags(), record);
}

void MRVSettingForGpsViewController::storeControls(_FILEDATA& record)
{
    storeChoices(*this, choices(), record);
    storeFlags(*this, flags(), record);
}

} // namespace marvo
