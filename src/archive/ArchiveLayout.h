// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace marvo {

// Where a card's files lie in an archive:
//
//     ARCHIVE/CAR/2026/2026-11-23/EventMovie/event_20261123_083000_F.avi
//     ARCHIVE/CAR/2026/2026-11-23/SHA256SUMS
//     ARCHIVE/CAR/2026/2026-11-23/~2/EventMovie/...      same name, other content
//     ARCHIVE/CAR/2026/2026-11-23/~partial/EventMovie/... as much as the card gave
//     ARCHIVE/CAR/undated/config.bin
//     ARCHIVE/.marvo/                                    what the program keeps for itself

inline constexpr std::string_view sumsFileName = "SHA256SUMS";
inline constexpr std::string_view undatedFolder = "undated";
inline constexpr std::string_view partialFolder = "~partial";
inline constexpr std::string_view ownFolder = ".marvo";

/// The day that a file's name tells as "YYYY-MM-DD": of its first run of exactly 8 or 14 digits that begins
/// with a day of the calendar ("_" ends a run). None when there is none.
std::optional<std::string> dayOfFileName(std::string_view fileName);

/// The folder below the car's for a file of the card, "2026/2026-11-23" or "undated". The path is the one on
/// the card; its last component decides.
std::string dayFolderOf(std::string_view cardPath);

/// Where a file of the card lies below its day's folder: variant 1 at its path on the card, variant 2 and so
/// on below "~2" and so on.
std::string placeInDay(std::string_view cardPath, int variant);
/// The same for a file that the card gave only in part.
std::string partialPlaceInDay(std::string_view cardPath, int variant);
/// The first variant that a path of the card may have: 2 for names that are taken in a day's folder, such as
/// that of its list of sums, else 1.
int firstVariant(std::string_view cardPath);
inline constexpr int lastVariant = 9999;

/// The day's folder that a path from the archive's root on lies in, such as "12GA3456/2026/2026-11-23"; empty
/// for one that lies in none.
std::string dayOfPlace(std::string_view pathInArchive);

/// Which variant a path below a day's folder is.
int variantOfPlace(std::string_view pathInDay);

/// True for paths below a day's folder that partialPlaceInDay() gives.
bool isPartialPlace(std::string_view pathInDay);

/// True for a name that a car's folder can have on every file system: UTF-8 of at most 80 bytes without
/// control characters and any of `<>:"/\|?*`, not beginning with ".", "~" or a space, not ending with "." or
/// a space.
bool isCarName(std::string_view name);

/// True for what lies in an archive's root and is no part of it: the program's own folder and the desktop's
/// trash.
bool isOutsideArchive(std::string_view nameInRoot);

/// True for names of files that the program is writing, or left when it was killed.
bool isUnfinishedName(std::string_view fileName);

} // namespace marvo
