// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/DemoClock.h"

#include <chrono>

namespace marvo::demo {

namespace {

using namespace std::chrono;

constexpr sys_seconds begin = sys_days{2024y / May / 17} + 5h + 20min;
constexpr seconds seoul = 9h;

CalendarTime calendarTime(sys_seconds time)
{
    const auto day = floor<days>(time);
    const year_month_day date{day};
    const hh_mm_ss clock{time - day};
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(std::chrono::weekday{day}.c_encoding()),
            static_cast<int>(clock.hours().count()),
            static_cast<int>(clock.minutes().count()),
            static_cast<int>(clock.seconds().count())};
}

} // namespace

std::int64_t unixTime(int driveSecond) { return (begin + seconds{driveSecond}).time_since_epoch().count(); }

CalendarTime localTime(int driveSecond) { return calendarTime(begin + seoul + seconds{driveSecond}); }

CalendarTime universalTime(int driveSecond) { return calendarTime(begin + seconds{driveSecond}); }

} // namespace marvo::demo
