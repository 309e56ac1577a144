// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/tabs/SettingsTabs.h"

#include "card/CardLayout.h"
#include "logs/window/MRVSettingForFlashDataViewController.h"
#include "logs/window/MRVSettingForObdDriveInfoViewController.h"
#include "settings/tabs/DrivingLogTab.h"
#include "settings/tabs/MRVSettingForAudioViewController.h"
#include "settings/tabs/MRVSettingForAuxViewController.h"
#include "settings/tabs/MRVSettingForBasicViewController.h"
#include "settings/tabs/MRVSettingForGpsViewController.h"
#include "settings/tabs/MRVSettingForObdViewController.h"
#include "settings/tabs/MRVSettingForVideoViewController.h"
#include "settings/window/CardSettings.h"

namespace marvo {

namespace {

template <typename Tab>
SettingsTabView* create(QWidget* parent, const SelectedCard&)
{
    return new Tab(parent);
}

/// A log's file dialog starts in the card's log folder.
template <typename LogView>
DrivingLogTab* createLogTab(QWidget* parent, const SelectedCard& card)
{
    auto* tab = new DrivingLogTab(new LogView, parent);
    if (card.selectedUSBDisk)
        tab->logView().setLogFolder(card.selectedUSBDisk->rootFile(logFolderName));
    return tab;
}

SettingsTabView* createDriveInfoTab(QWidget* parent, const SelectedCard& card)
{
    DrivingLogTab* tab = createLogTab<MRVSettingForFlashDataViewController>(parent, card);
    if (card.drivingLogPath)
        tab->logView().setFlashDataFilePath(*card.drivingLogPath);
    return tab;
}

} // namespace

const SettingsTabTable& settingsTabs()
{
    static const SettingsTabTable tabs = {
        .always = {{"setting.video", "setting.video", create<MRVSettingForVideoViewController>},
                   {"setting.basic", "setting.basic", create<MRVSettingForBasicViewController>},
                   {"setting.gps", "setting.gps", create<MRVSettingForGpsViewController>},
                   {"setting.aux", "setting.aux", create<MRVSettingForAuxViewController>},
                   {"setting.audio", "setting.audio", create<MRVSettingForAudioViewController>},
                   {"setting.driveinfoview", "setting.information", createDriveInfoTab,
                    SettingsTab::Lifetime::Window}},
        .withObd = {{"setting.obd", "setting.obd", create<MRVSettingForObdViewController>},
                    {"setting.obdinfoview", "setting.obdinfoview",
                     createLogTab<MRVSettingForObdDriveInfoViewController>, SettingsTab::Lifetime::Window}},
    };
    return tabs;
}

} // namespace marvo
