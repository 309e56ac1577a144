// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace marvo {

/// Which of the camera's two channels a file holds.
enum MediaDirection { FrontMedia = 0, RearMedia = 1, UnknownMedia = 2 };

/// Front or rear by the last six characters of a file's path ("_F.avi", "_R.avi", case ignored).
int mediaDirection(std::string_view path);

/// One recording file, with the kind and the time that the camera wrote into its name.
///
/// Paths and names are bytes as the file system has them: a card's names need not be UTF-8. For showing them
/// there are QString forms, with a replacement character for what cannot be read.
class MRVMedia
{
public:
    explicit MRVMedia(std::string_view path);

    const std::string& path() const;      ///< absolute
    const std::string& mediaName() const; ///< base name without extension
    const std::string& extension() const; ///< without the dot, as written
    const std::string& dir() const;
    std::string fileName() const;       ///< base name, dot, extension
    std::string mediaGroupName() const; ///< base name without the channel suffix; needs two characters
    QString displayFileName() const;
    QString displayPath() const;

    int mediaDivision() const; ///< 0 always, 1 motion, 2 event
    bool isAlwaysMedia() const;
    bool isMotionMedia() const;
    bool isEventMedia() const;

    /// All six are 0 when the name tells no time.
    int year() const;
    int month() const;
    int day() const;
    int hour() const;
    int minute() const;
    int second() const;
    std::string yyyymmddhhmiss() const;

    /// Negative, 0 or positive: by time, and at equal times the higher kind code first.
    int compareDate(const MRVMedia& other) const;
};

} // namespace marvo
