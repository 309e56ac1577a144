// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "media/MediaName.h"

#include <QString>

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
/// Paths and names are bytes as the file system has them: a card's names need not be UTF-8. For showing them
/// there are QString forms, with a replacement character for what cannot be read.
class MRVMedia
{
public:
    explicit MRVMedia(std::string_view path);

    const std::string& path() const { return m_path; } ///< absolute
    std::string_view mediaName() const;                ///< base name without extension
    std::string_view extension() const;                ///< without the dot, as written
    std::string_view dir() const;                      ///< path without its last component
    std::string fileName() const;                      ///< base name, dot, extension
    /// Base name without the channel suffix, its last two characters. Not to be asked of a shorter name.
    std::string mediaGroupName() const;
    QString displayFileName() const;
    QString displayPath() const;

    int mediaDivision() const { return m_mediaDivision; } ///< 0 always, 1 motion, 2 event
    bool isAlwaysMedia() const { return m_mediaDivision == 0; }
    bool isMotionMedia() const { return m_mediaDivision == 1; }
    bool isEventMedia() const { return m_mediaDivision == 2; }

    /// All six are 0 when the name tells no time.
    int year() const { return m_time.year; }
    int month() const { return m_time.month; }
    int day() const { return m_time.day; }
    int hour() const { return m_time.hour; }
    int minute() const { return m_time.minute; }
    int second() const { return m_time.second; }
    std::string yyyymmddhhmiss() const;

    /// Negative, 0 or positive: by time, and at equal times the higher kind code first.
    int compareDate(const MRVMedia& other) const;

private:
    void parsePath(std::string_view path);

    // The parts of the path are looked up in it: a list of thousands keeps one text a record.
    std::string m_path;
    std::size_t m_nameStart = 0;
    std::size_t m_nameLength = 0; ///< of mediaName
    MediaTime m_time;
    std::int64_t m_timeDigits = 0; ///< the digits of yyyymmddhhmiss as one number, to sort by
    int m_mediaDivision = 0;
};

} // namespace marvo
