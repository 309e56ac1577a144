// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/FileData.h"

#include <QString>

#include <optional>
#include <string>

namespace marvo {

/// As saveSettingFile(), for a window: the system's words go to the log, and the result is the text to show,
/// none after success.
std::optional<QString> writeSettingFile(const _FILEDATA& record, const std::string& path);

/// Writes the base record, not sealed, as a freshly formatted card has it.
std::optional<QString> writeDefaultSettingFile(const std::string& path);

} // namespace marvo
