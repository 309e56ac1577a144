// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "media/MediaName.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace marvo {

/// What a recording's name tells, its channel's ending apart: a "motion_" or "event_" name with a channel is
/// too long for the recording list, yet it is part of a drive.
struct NameFacts
{
    int kind = 0;                       ///< as MRVMedia::mediaDivision
    bool isRear = false;                ///< all others stand in the front's lane
    std::optional<MediaTime> time = {}; ///< none when the name tells none
};
NameFacts nameFacts(std::string_view path);

/// Whether a file belongs to a drive: the list takes it, or leaves it out for nothing but its channel's
/// ending.
bool isDriveRecording(std::string_view path);

/// Seconds of the camera's clock since the beginning of 1970, without a zone. Numbers beyond the calendar
/// count on: 31 February is 3 March, 24:60:60 the next day at 01:01:00.
std::int64_t secondsOf(const MediaTime& time);

/// "YYYY-MM-DDThh:mm:ss" with the digits as they stand.
std::string digitsText(const MediaTime& time);
/// The same of a clock's milliseconds, cut to seconds; or with ".mmm".
std::string clockTimeText(std::int64_t ms);
std::string clockTimeTextMs(std::int64_t ms);

} // namespace marvo
