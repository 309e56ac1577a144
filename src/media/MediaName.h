// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace marvo {

/// The absolute form of a path. A relative path starts at the current directory; doubled and trailing slashes
/// and "." components are removed. ".." stays, since after a link it does not lead to the parent that the
/// text names. If the current directory was removed, a relative path stays relative.
std::string absoluteFilePath(std::string_view path);

/// A file name split at its last dot. A name whose only dot is its first character has no extension.
struct SplitFileName
{
    std::string_view base;
    std::string_view extension; ///< without the dot
};
SplitFileName splitFileName(std::string_view fileName);

/// The code of the kind whose prefix the base name begins with (case matters); none for a foreign name.
std::optional<int> kindOfMediaName(std::string_view mediaName);

/// The character of the base name at which the time of a kind begins.
std::size_t timeStart(int kind);

/// True for base names as long as prefix and time of one of the kinds (20, 21 or 22 characters), whichever
/// prefix they have.
bool hasMediaNameLength(std::string_view mediaName);

/// True when the name holds the 15 characters of a time from startPos on; the digits are not examined.
bool _checkTimeByName(std::string_view mediaName, std::size_t startPos);

/// True when a file of this base name belongs into the list of recordings: one of those lengths, and room
/// for the time behind a known prefix. Foreign names of the right length belong to it too.
bool isMediaName(std::string_view mediaName);

/// A calendar time as it stands in a recording's name. Leap seconds and the 24th hour pass.
struct MediaTime
{
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

/// Reads "yyyymmdd_hhmiss" at a character of the base name. Each number is the leading digits of its place.
/// None when the name is too short or a number is out of range (years 1970 to 2700).
std::optional<MediaTime> readMediaTime(std::string_view mediaName, std::size_t startPos);

} // namespace marvo
