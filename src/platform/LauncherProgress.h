// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace marvo {

/// Shows progress, from 0 to 1, on the application's icon in the desktop's launcher; none takes it away.
using LauncherProgress = std::function<void(std::optional<double> fraction)>;

/// For the application of a desktop file. Where the desktop has no such launcher, calls do nothing.
LauncherProgress launcherProgress(const QString& desktopFileName);

} // namespace marvo
