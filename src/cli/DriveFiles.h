// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "drives/Drives.h"
#include "drives/RecordingReading.h"

#include <string>
#include <system_error>
#include <vector>

namespace marvo::cli {

/// The recordings of a folder tree, or a single one, read and ready to be grouped.
struct DriveFiles
{
    std::vector<DriveRecording> recordings;
    std::vector<RecordingReading> readings; ///< of the same numbers
    std::error_code error;                  ///< why a folder could not be listed, or not to its end
};
DriveFiles readDriveFiles(const std::string& fileOrFolder, const ReadingRequest& request);

} // namespace marvo::cli
