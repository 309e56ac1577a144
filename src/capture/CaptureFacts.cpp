// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "capture/CaptureFacts.h"

#include "media/MRVMedia.h"
#include "recording/MRVBlackBoxData.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace marvo {

namespace {

using namespace std::chrono;

bool isCalendarTime(const _SYSTEMTIME& time)
{
    const year_month_day date{year(time.wYear), month(time.wMonth), day(time.wDay)};
    return date.ok() && time.wHour < 24 && time.wMinute < 60 && time.wSecond < 60;
}

/// The recording's start by its name, and what has been played since.
std::optional<_SYSTEMTIME> timeTaken(const MRVMedia& media, std::int64_t timeMs)
{
    const year_month_day startDate{year(media.year()), month(static_cast<unsigned>(media.month())),
                                   day(static_cast<unsigned>(media.day()))};
    if (media.year() < 1 || !startDate.ok())
        return {};
    const sys_time<milliseconds> taken = sys_days(startDate) + hours(media.hour()) + minutes(media.minute()) +
                                         seconds(media.second()) + milliseconds(timeMs);
    const sys_days takenDay = floor<days>(taken);
    const year_month_day date(takenDay);
    const hh_mm_ss<milliseconds> time(taken - takenDay);
    _SYSTEMTIME result;
    result.wYear = static_cast<std::uint16_t>(static_cast<int>(date.year()));
    result.wMonth = static_cast<std::uint16_t>(static_cast<unsigned>(date.month()));
    result.wDay = static_cast<std::uint16_t>(static_cast<unsigned>(date.day()));
    result.wHour = static_cast<std::uint16_t>(time.hours().count());
    result.wMinute = static_cast<std::uint16_t>(time.minutes().count());
    result.wSecond = static_cast<std::uint16_t>(time.seconds().count());
    result.wMilliseconds = static_cast<std::uint16_t>(time.subseconds().count());
    return result;
}

} // namespace

CaptureFacts captureFactsAt(const std::string& mediaPath, double position, std::int64_t timeMs,
                            const MRVBlackBoxData& data, SpeedUnit unit)
{
    CaptureFacts facts;
    facts.speedUnit = unit;
    const MRVMedia media(mediaPath);
    facts.taken = timeTaken(media, timeMs);
    const std::string name = media.fileName();
    if (std::ranges::all_of(name, [](char c) { return c >= ' ' && c <= '~'; }))
        facts.recording = name;

    const auto& states = data.m_NMEAs();
    if (!states.empty()) {
        const _SYSTEMTIME now = states[indexOfPosition(position, states.size())]->Now;
        if (isCalendarTime(now))
            facts.utc = now;
    }

    const auto& fixes = data.m_vGpsData();
    if (fixes.empty())
        return facts;
    const std::size_t index = indexOfPosition(position, fixes.size());
    const _AVI_GPS_DATA_T fix = fixes[index].data();
    if (fix.fLatitude == 0 && fix.fLongitude == 0)
        return facts;
    const DecimalPosition place = decimalPosition(fix, hemispheresAt(states, index));
    if (std::abs(place.latitude) <= 90 && std::abs(place.longitude) <= 180) // false for not-a-number too
        facts.place = place;
    const double speed = shownSpeed(fix, unit);
    if (speed >= 0 && speed < 10'000) // what a car may do, whatever damaged data say
        facts.speed = speed;
    return facts;
}

} // namespace marvo
