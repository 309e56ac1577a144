// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "media/MediaName.h"

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace marvo {

/// Which of the camera's two channels a file holds.
enum MediaDirection { FrontMedia = 0, RearMedia = 1, UnknownMedia = 2 };

/// Front or rear by the last six characters of a file's path ("_F.avi", "_R.avi", case ignored).
int mediaDirection(std::string_view path);
bool isFrontMedia(std::string_view path);
bool isRearMedia(std::string_view path);

/// One recording file, with the kind and the time that the camera wrote into its name.
///
/// Paths and names are bytes as the file system has them: a card's names need not be UTF-8. For showing
/// them there is displayText().
class MRVMedia
{
public:
    explicit MRVMedia(std::string_view path);
    /// For a path that absoluteFilePath() would not change.
    static MRVMedia ofAbsolutePath(std::string path);

    const std::string& path() const { return m_path; } ///< absolute
    std::string_view mediaName() const;                ///< base name without extension
    std::string_view extension() const;                ///< without the dot, as written
    std::string_view dir() const;                      ///< path without its last component
    std::string fileName() const;                      ///< base name, dot, extension
    /// Base name without the channel suffix, its last two characters. The name must have two or more.
    std::string mediaGroupName() const;

    int mediaDivision() const { return m_mediaDivision; } ///< its place in recordingKinds
    bool isAlwaysMedia() const { return m_mediaDivision == 0; }
    bool isMotionMedia() const { return m_mediaDivision == 1; }
    bool isEventMedia() const { return m_mediaDivision == 2; }

    /// All six are 0 when the name tells no time.
    int year() const { return static_cast<int>(m_timeDigits / 10000000000); }
    int month() const { return twoDigits(100000000); }
    int day() const { return twoDigits(1000000); }
    int hour() const { return twoDigits(10000); }
    int minute() const { return twoDigits(100); }
    int second() const { return twoDigits(1); }
    std::string yyyymmddhhmiss() const;

    /// The sort key of recordings: time, and at equal times the higher kind code first.
    struct DateOrder
    {
        std::int64_t timeDigits;
        int division; ///< negative
        auto operator<=>(const DateOrder&) const = default;
    };
    DateOrder dateOrder() const { return {m_timeDigits, -m_mediaDivision}; }
    /// Negative, 0 or positive, as dateOrder() sorts.
    int compareDate(const MRVMedia& other) const;

private:
    MRVMedia() = default;
    void parsePath(std::string path);
    int twoDigits(std::int64_t unit) const { return static_cast<int>(m_timeDigits / unit % 100); }

    // A list holds thousands of records, so the parts of path and time are computed when asked for.
    std::string m_path;
    std::size_t m_nameStart = 0;
    std::size_t m_nameLength = 0;  ///< of mediaName
    std::int64_t m_timeDigits = 0; ///< yyyymmddhhmiss as one number; 0 when unknown
    int m_mediaDivision = 0;
};

} // namespace marvo
