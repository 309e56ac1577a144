// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "media/MRVMedia.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <system_error>
#include <vector>

namespace marvo {

/// A scan ends at this number of recordings. In each folder the file that reaches or exceeds it is the last
/// one taken, so that enclosing folders may still add one file each.
inline constexpr std::size_t mediaListLimit = 15000;

/// The record of a file whose base name can be a recording's; none for any other name. The extension is not
/// checked and the file is not opened.
std::optional<MRVMedia> createMediaByPath(std::string_view path);

/// The result of a scan.
struct MediaScan
{
    std::vector<MRVMedia> medias; ///< sorted by compareDate; of equal ones front before rear, then by path
    std::error_code folderError;  ///< why the folder itself could not be read, or not to its end
};

/// Lists every recording in a folder and all folders below it, hidden ones included, depth first in the order
/// of the file system. Links are followed; each folder is walked once, however many links lead to it. Folders
/// below that cannot be read contribute nothing. Files are never opened, only names count: "*.avi" in any
/// case that createMediaByPath() accepts, broken links included.
///
/// Runs on any thread. A requested stop ends it at the next entry; the result is then meaningless. onFound is
/// called with the number of recordings after each one found, on the thread of the scan.
MediaScan scanFolder(const std::string& folder, const std::stop_token& stop = {},
                     const std::function<void(std::size_t)>& onFound = {});

/// The same for files of other names: those that end in ".avi", in any case, and whose names are wanted.
using NameFilter = bool (*)(std::string_view fileName);
MediaScan scanFolder(const std::string& folder, NameFilter isWanted, const std::stop_token& stop = {},
                     const std::function<void(std::size_t)>& onFound = {});

} // namespace marvo
