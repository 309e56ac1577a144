// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "platform/Graphics.h"

#include <QDir>
#include <QFile>

#include <unistd.h>

namespace marvo {

bool mayHaveGraphicsProcessor()
{
    // The device names of the kernel's own drivers, of NVIDIA's, and of WSL.
    return !QDir(QStringLiteral("/dev/dri"), QStringLiteral("renderD*"), QDir::NoSort, QDir::System)
                .isEmpty() ||
           QFile::exists(QStringLiteral("/dev/nvidiactl")) || QFile::exists(QStringLiteral("/dev/dxg"));
}

bool isAdministrator() { return ::geteuid() == 0; }

} // namespace marvo
