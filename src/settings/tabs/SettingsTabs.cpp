// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/window/SettingsTabs.h"

#include "settings/tabs/MRVSettingForAudioViewController.h"
#include "settings/tabs/MRVSettingForAuxViewController.h"
#include "settings/tabs/MRVSettingForBasicViewController.h"
#include "settings/tabs/MRVSettingForGpsViewController.h"
#include "settings/tabs/MRVSettingForObdViewController.h"
#include "settings/tabs/MRVSettingForVideoViewController.h"

namespace marvo {

namespace {

template <typename Tab>
SettingsTabView* create(QWidget* parent)
{
    return new Tab(parent);
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
    };
    return tabs;
}

const SettingsTab& obdSettingsTab()
{
    static const SettingsTab tab = {"setting.obd", "setting.obd", create<MRVSettingForObdViewController>};
    return tab;
}

} // namespace marvo
