// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace marvo::demo {

struct CalendarTime
{
    int year = 0;
    int month = 0;   ///< 1 to 12
    int day = 0;     ///< 1 to 31
    int weekday = 0; ///< 0 is Sunday
    int hour = 0;
    int minute = 0;
    int second = 0;
};

/// When the demo drive takes place: it begins on Friday, 17 May 2024, at 14:20:00 in Seoul (UTC+9).
std::int64_t unixTime(int driveSecond); ///< seconds since 1 January 1970, UTC
CalendarTime localTime(int driveSecond);
CalendarTime universalTime(int driveSecond);

} // namespace marvo::demo
