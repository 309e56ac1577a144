// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

class QWidget;

namespace marvo {

class SettingsTabView;

/// One segment of the settings window's tab bar.
struct SettingsTab
{
    const char* labelKey; ///< of its segment
    const char* titleKey; ///< of the tab itself
    std::function<SettingsTabView*(QWidget* parent)> create;
};

/// The tabs over the settings record that every camera has, in the order of their segments.
const std::vector<SettingsTab>& settingsTabs();
/// The tab of cameras with an OBD adapter.
const SettingsTab& obdSettingsTab();

} // namespace marvo
