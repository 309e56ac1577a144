// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "evidence/Track.h"

#include "recording/MRVBlackBoxData.h"
#include "recording/NmeaFields.h"
#include "recording/RecordingSummary.h"

#include <chrono>
#include <cmath>
#include <utility>

namespace marvo {

namespace {

constexpr std::int64_t gapMs = 5'000;
constexpr double kmhPerKnot = 1.852;

bool isFinite(const DecimalPosition& place)
{
    return std::isfinite(place.latitude) && std::isfinite(place.longitude);
}

std::optional<std::int64_t> utcOf(std::string_view time, std::string_view date)
{
    if (time.size() != 10 || date.size() != 6)
        return std::nullopt;
    NmeaScanner clock(time);
    const int hour = clock.number(2);
    const int minute = clock.number(2);
    const int second = clock.number(2);
    clock.literal('.');
    const int milliseconds = clock.number(3);
    NmeaScanner calendar(date);
    const auto day = static_cast<unsigned>(calendar.number(2));
    const auto month = static_cast<unsigned>(calendar.number(2));
    using namespace std::chrono;
    const year_month_day whole{year(2000 + calendar.number(2)), std::chrono::month(month),
                               std::chrono::day(day)};
    if (!whole.ok() || hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 60 ||
        milliseconds < 0)
        return std::nullopt;
    const auto moment = sys_days(whole) + hours(hour) + minutes(minute) + seconds(second);
    return duration_cast<std::chrono::milliseconds>(moment.time_since_epoch()).count() + milliseconds;
}

/// What the sentences of one GPS record say; a record is told after its sentences.
struct RecordSentences
{
    bool deniesFix = false;
    std::optional<std::int64_t> utcMs;
    std::optional<double> speedKmh;
    std::optional<double> course;
    std::optional<double> hdop;
    std::optional<int> satellites;

    void take(std::string_view sentence)
    {
        const auto fields = NmeaFields::split(sentence);
        if (!fields)
            return;
        if ((*fields)[0] == "$GPRMC")
            takeRmc(*fields);
        else if ((*fields)[0] == "$GPGGA")
            takeGga(*fields);
    }

private:
    void takeRmc(const NmeaFields& fields)
    {
        if (fields[2] != "A") {
            deniesFix = true;
            return;
        }
        utcMs = utcOf(fields[1], fields[9]);
        const double speed = static_cast<double>(nmeaNumber(fields[7])) * kmhPerKnot;
        if (!fields[7].empty() && std::isfinite(speed) && speed >= 0)
            speedKmh = speed;
        const auto direction = static_cast<double>(nmeaNumber(fields[8]));
        if (!fields[8].empty() && direction >= 0 && direction <= 360)
            course = std::fmod(direction, 360);
    }

    void takeGga(const NmeaFields& fields)
    {
        if (fields[6].empty() || nmeaInteger(fields[6]) == 0) {
            deniesFix = true;
            return;
        }
        const auto dilution = static_cast<double>(nmeaNumber(fields[8]));
        if (!fields[8].empty() && std::isfinite(dilution) && dilution >= 0)
            hdop = dilution;
        if (!fields[7].empty() && nmeaInteger(fields[7]) >= 0)
            satellites = nmeaInteger(fields[7]);
    }
};

} // namespace

RecordingTrack readTrack(ByteSource& source, std::string name, TrackReach reach)
{
    RecordingTrack track;
    track.name = std::move(name);
    MRVBlackBoxData recording;
    RecordSentences sentences;
    std::vector<_AVI_GPS_DATA_T> headers;
    std::vector<std::size_t> firstSamples;
    recording.setSentenceListener([&](std::string_view sentence) { sentences.take(sentence); });
    recording.setFixListener([&](const _AVI_GPS_DATA_T& header, std::string_view) {
        const RecordSentences said = std::exchange(sentences, {});
        headers.push_back(header);
        firstSamples.push_back(recording.m_vGpsData().size());
        track.fixes.push_back({.timestampMs = header.nTimestamp,
                               .place = {},
                               .utcMs = said.utcMs,
                               .speedKmh = said.speedKmh,
                               .course = said.course,
                               .hdop = said.hdop,
                               .satellites = said.satellites,
                               .cameraSpeed = header.fSpeed,
                               .marker = header.KM});
        if (!said.deniesFix)
            track.fixes.back().place.emplace();
    });
    track.isWhole = reach == TrackReach::Film ? recording.ExtractStreamInformation(source)
                                              : recording.ExtractDataArea(source);
    // Only now are all snapshots there.
    for (std::size_t i = 0; i < track.fixes.size(); ++i) {
        auto& place = track.fixes[i].place;
        if (place)
            place = decimalPosition(headers[i], hemispheresAt(recording.m_NMEAs(), firstSamples[i]));
        if (place && (!isOnEarth(*place) || !isFinite(*place)))
            place.reset();
    }
    std::size_t fix = 0;
    for (std::size_t i = 0; i < recording.m_GSensors().size(); ++i) {
        while (fix + 1 < firstSamples.size() && firstSamples[fix + 1] <= i)
            ++fix;
        TrackReading reading{.timestampMs = recording.m_vGSensorData()[i].data().nTimestamp,
                             .axes = recording.m_GSensors()[i],
                             .fix = {}};
        if (i < recording.m_vGpsData().size() && fix < firstSamples.size())
            reading.fix = fix;
        track.readings.push_back(reading);
    }
    return track;
}

std::vector<TrackSegment> segmentsOf(const std::vector<RecordingTrack>& tracks)
{
    std::vector<TrackSegment> segments;
    const TrackFix* last = nullptr;
    const RecordingTrack* lastTrack = nullptr;
    for (const RecordingTrack& track : tracks) {
        for (const TrackFix& fix : track.fixes) {
            if (!fix.place) {
                last = nullptr;
                continue;
            }
            const auto follows = [](std::int64_t before, std::int64_t after) {
                return after >= before && after - before <= gapMs;
            };
            bool joins = last != nullptr;
            if (joins && last->utcMs && fix.utcMs)
                joins = follows(*last->utcMs, *fix.utcMs);
            else if (joins)
                joins = lastTrack == &track && follows(last->timestampMs, fix.timestampMs);
            if (!joins)
                segments.emplace_back();
            segments.back().push_back(&fix);
            last = &fix;
            lastTrack = &track;
        }
    }
    return segments;
}

} // namespace marvo
