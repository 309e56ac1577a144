// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "platform/LauncherProgress.h"

#include "platform/UnityLauncherEntry.h"

namespace marvo {

LauncherProgress launcherProgress(const QString& desktopFileName)
{
    return [launcher = UnityLauncherEntry(desktopFileName)](std::optional<double> fraction) {
        launcher.showProgress(fraction);
    };
}

} // namespace marvo
