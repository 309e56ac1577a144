// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "drives/RecordingTime.h"

#include "media/MRVMedia.h"

#include <array>
#include <chrono>
#include <cstdio>

namespace marvo {

namespace {

constexpr std::int64_t dayMs = 86'400'000;

/// The base name without its channel, where only the channel makes it too long for its kind.
std::string_view listedName(std::string_view mediaName)
{
    const std::optional<int> kind = kindOfMediaName(mediaName);
    constexpr std::size_t timeLength = 15; // "yyyymmdd_hhmiss"
    constexpr std::size_t channel = 2;
    if (!kind || *kind == 0 || mediaName.size() != timeStart(*kind) + timeLength + channel)
        return mediaName;
    const char letter = mediaName.back();
    const bool isChannel = mediaName[mediaName.size() - channel] == '_' &&
                           (letter == 'F' || letter == 'f' || letter == 'R' || letter == 'r');
    return isChannel ? mediaName.substr(0, mediaName.size() - channel) : mediaName;
}

struct Clock
{
    std::chrono::year_month_day day;
    int hour, minute, second, millisecond;
};

Clock clockOf(std::int64_t ms)
{
    using namespace std::chrono;
    const sys_time<milliseconds> moment{milliseconds(ms)};
    const auto day = floor<days>(moment);
    const hh_mm_ss time(moment - day);
    return {year_month_day(day), static_cast<int>(time.hours().count()),
            static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()),
            static_cast<int>(time.subseconds().count())};
}

std::string text(int year, int month, int day, int hour, int minute, int second)
{
    std::array<char, 64> out{};
    std::snprintf(out.data(), out.size(), "%04d-%02d-%02dT%02d:%02d:%02d", year, month, day, hour, minute,
                  second);
    return out.data();
}

} // namespace

NameFacts nameFacts(std::string_view path)
{
    NameFacts facts;
    facts.isRear = isRearMedia(path);
    const std::string_view fileName = path.substr(path.rfind('/') + 1);
    const std::string_view name = listedName(splitFileName(fileName).base);
    const std::optional<int> kind = kindOfMediaName(name);
    if (!kind || !hasMediaNameLength(name))
        return facts;
    facts.kind = *kind;
    facts.time = readMediaTime(name, timeStart(*kind));
    return facts;
}

bool isDriveRecording(std::string_view path)
{
    return isMediaName(listedName(splitFileName(path.substr(path.rfind('/') + 1)).base));
}

std::int64_t secondsOf(const MediaTime& time)
{
    using namespace std::chrono;
    const sys_days month{year(time.year) / time.month / 1};
    return duration_cast<seconds>(month.time_since_epoch()).count() +
           ((std::int64_t{time.day - 1} * 24 + time.hour) * 60 + time.minute) * 60 + time.second;
}

std::string digitsText(const MediaTime& time)
{
    return text(time.year, time.month, time.day, time.hour, time.minute, time.second);
}

std::string clockTimeText(std::int64_t ms)
{
    const Clock clock = clockOf(ms);
    return text(
        static_cast<int>(clock.day.year()), static_cast<int>(static_cast<unsigned>(clock.day.month())),
        static_cast<int>(static_cast<unsigned>(clock.day.day())), clock.hour, clock.minute, clock.second);
}

std::string clockTimeTextMs(std::int64_t ms)
{
    std::array<char, 8> out{};
    std::snprintf(out.data(), out.size(), ".%03d", static_cast<int>(((ms % dayMs) + dayMs) % 1000));
    return clockTimeText(ms) + out.data();
}

} // namespace marvo
