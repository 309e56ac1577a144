// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "card/disks/DeviceAccess.h"
#include "card/FormatPlan.h"

#include <QString>

#include <optional>
#include <stop_token>

namespace marvo {

/// Makes the plan's file system with mkfs.fat, in an unnamed sparse file in memory as large as the volume.
struct FileSystemImage
{
    DeviceDescriptor file;         ///< none when it could not be made
    bool formatterMissing = false; ///< there is no mkfs.fat on this computer
    QString error;                 ///< what went wrong, in the system's words
};
FileSystemImage makeFileSystemImage(const FormatPlan& plan, const std::stop_token& stop);

} // namespace marvo
