// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "platform/DesktopPrograms.h"

#include <QProcess>
#include <QStandardPaths>

namespace marvo {

bool startDiskUtility()
{
    // What the desktops bring along, the most common first.
    for (const char* name : {"gnome-disks", "partitionmanager", "blivet-gui", "gparted"}) {
        const QString program = QStandardPaths::findExecutable(QLatin1String(name));
        if (!program.isEmpty() && QProcess::startDetached(program, {}))
            return true;
    }
    return false;
}

} // namespace marvo
