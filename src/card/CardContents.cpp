// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/CardContents.h"

#include "card/CardLayout.h"
#include "card/CardRestoring.h"
#include "media/MediaScan.h"

#include <cerrno>
#include <cstdio>
#include <sys/stat.h>
#include <sys/statvfs.h>

namespace marvo {

CardContents readCardContents(const std::string& root, const std::stop_token& stop)
{
    CardContents contents;
    const MediaScan scan = scanFolder(root, stop);
    contents.recordings = scan.medias.size();
    contents.countUnknown = scan.folderError.operator bool();
    struct statvfs space = {};
    if (::statvfs(root.c_str(), &space) == 0 && space.f_blocks >= space.f_bfree)
        contents.usedBytes = std::uint64_t{space.f_blocks - space.f_bfree} * space.f_frsize;
    struct stat status = {};
    const std::string settings = std::string(root).append("/").append(settingsFileName);
    contents.settings = readCardSettingsFile(root);
    // If another user has mounted the card, even this cannot be found out.
    contents.settingsUnreadable =
        !contents.settings && (::lstat(settings.c_str(), &status) == 0 || errno != ENOENT);
    return contents;
}

std::string decimalSizeString(std::uint64_t bytes)
{
    constexpr const char* units = "BkMGTPE";
    double size = static_cast<double>(bytes);
    int unit = 0;
    // What would be written as "1024.0" belongs to the next unit.
    while (size >= (unit == 0 ? 1024 : 1023.95)) {
        size /= 1024;
        ++unit;
    }
    char text[32];
    if (unit == 0)
        std::snprintf(text, sizeof text, "%d B", static_cast<int>(bytes));
    else
        std::snprintf(text, sizeof text, "%.1f %cB", size, units[unit]);
    return text;
}

} // namespace marvo
