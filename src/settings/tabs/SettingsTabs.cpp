// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/window/SettingsTabs.h"

#include "logs/window/MRVSettingForFlashDataViewController.h"
#include "logs/window/MRVSettingForObdDriveInfoViewController.h"
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

/// A log's view begins to look where the card keeps its logs.
template <typename LogView>
LogView* createLogView(QWidget* parent, const SelectedCard& card)
{
    auto* view = new LogView(parent);
    if (card.selectedUSBDisk)
        view->setLogFolder(card.selectedUSBDisk->rootFile(logFolderName));
    return view;
}

SettingsTabView* createDriveInfoController(QWidget* parent, const SelectedCard& card)
{
    auto* view = createLogView<MRVSettingForFlashDataViewController>(parent, card);
    if (card.drivingLogPath)
        view->setFlashDataFilePath(*card.drivingLogPath);
    return view;
}

} // namespace

const std::vector<SettingsTab>& settingsTabs()
{
    static const std::vector<SettingsTab> tabs = {
        {"setting.video", "setting.video", create<MRVSettingForVideoViewController>},
        {"setting.basic", "setting.basic", create<MRVSettingForBasicViewController>},
        {"setting.gps", "setting.gps", create<MRVSettingForGpsViewController>},
        {"setting.aux", "setting.aux", create<MRVSettingForAuxViewController>},
        {"setting.audio", "setting.audio", create<MRVSettingForAudioViewController>},
        {"setting.driveinfoview", "setting.information", createDriveInfoController,
         SettingsTab::Lifetime::Window},
    };
    return tabs;
}

const std::vector<SettingsTab>& obdTabs()
{
    static const std::vector<SettingsTab> tabs = {
        {"setting.obd", "setting.obd", create<MRVSettingForObdViewController>},
        {"setting.obdinfoview", "setting.obdinfoview", createLogView<MRVSettingForObdDriveInfoViewController>,
         SettingsTab::Lifetime::Window},
    };
    return tabs;
}

} // namespace marvo
