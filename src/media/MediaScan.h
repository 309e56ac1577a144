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

/// So many recordings end a scan: in each folder being walked the file that reaches or passes it is the last
/// one taken, so that the folders around the one that reached it may still add a file each.
inline constexpr std::size_t mediaListLimit = 15000;

/// The record of a file whose base name can be a recording's; none for any other name. The extension and the
/// file itself are not looked at.
std::optional<MRVMedia> createMediaByPath(std::string_view path);

/// What a scan found.
struct MediaScan
{
    std::vector<MRVMedia> medias; ///< sorted by compareDate; equal ones in the order of the walk
    std::error_code folderError;  ///< why the folder itself could not be listed, or not to its end
};

/// Lists every recording in a folder and all folders below it, hidden ones included, depth first in the order
/// of the file system. Links are followed, and each folder is walked once however many ways lead to it. What
/// cannot be listed below the folder contributes nothing; files are never opened. Names decide: "*.avi" in
/// any case that createMediaByPath accepts, also when it is a broken link.
///
/// Runs on any thread. A requested stop ends it at the next entry, with a meaningless result. onFound is told
/// the number of recordings after each one found, on the thread of the scan.
MediaScan scanFolder(const std::string& folder, const std::stop_token& stop = {},
                     const std::function<void(std::size_t)>& onFound = {});

} // namespace marvo
