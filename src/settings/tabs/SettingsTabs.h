// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/window/SettingsTab.h"

namespace marvo {

/// The tabs that the settings window shows. The table lives as long as the program.
const SettingsTabTable& settingsTabs();

} // namespace marvo
