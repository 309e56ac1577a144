// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace marvo {

/// The user's setting that the camera has an OBD adapter, which the card does not always show.
namespace ObdPreference {

bool isOn();
void set(bool on);

} // namespace ObdPreference

/// True when the card's folder of driving logs holds one of an OBD adapter.
bool holdsObdLog(const std::string& cardFolder);

} // namespace marvo
