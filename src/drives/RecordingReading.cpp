// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "drives/RecordingReading.h"

#include "film/ClipIndexReading.h"
#include "film/FilmLength.h"
#include "support/FileSource.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <new>
#include <thread>

namespace marvo {

namespace {

constexpr double kmhPerKnot = 1.852;
/// A rate that makes a film longer than a week is damage.
void readFilm(FileSource& file, RecordingReading& reading)
{
    const ClipIndex index = readClipIndex(file, file.size());
    if (!index.video)
        return;
    const FilmLength length = filmLength(index);
    reading.isPlayable = length.pictures > 0;
    reading.isDamaged = length.pictures == 0 || length.pictures != index.picturesTold;
    reading.durationMs = length.ms;
}

void readData(const MRVBlackBoxData& data, const ReadingRequest& request, RecordingReading& reading)
{
    const RecordingSummary summary = summarise(data);
    reading.hasReading = !data.m_GSensors().empty();
    reading.hasFix = summary.firstFix.has_value();
    if (summary.firstFix)
        reading.firstFix = summary.firstFix->position;
    reading.distanceMetres = summary.distanceMetres;
    for (const auto& snapshot : data.m_NMEAs()) {
        if (snapshot->Now == _SYSTEMTIME() || !std::isfinite(snapshot->SpeedOverGround))
            continue;
        const double speed = snapshot->SpeedOverGround * kmhPerKnot;
        reading.topSpeedKmh = std::max(reading.topSpeedKmh.value_or(speed), speed);
    }
    reading.impacts = impactsOf(data, reading.durationMs, request.thresholds);
    reading.speeding = speedChangesOf(data, reading.durationMs);
}

} // namespace

RecordingReading readRecording(const std::string& path, const ReadingRequest& request, std::stop_token stop)
{
    RecordingReading reading;
    FileSource file(path);
    if (!file.isOpen())
        return reading;
    readFilm(file, reading);
    MRVBlackBoxData data;
    data.ExtractDataArea(file, std::move(stop)); // what was read before a fault counts
    readData(data, request, reading);
    return reading;
}

std::vector<RecordingReading> readRecordings(const std::vector<std::string>& paths,
                                             const ReadingRequest& request, std::stop_token stop)
{
    std::vector<RecordingReading> readings(paths.size());
    std::atomic<std::size_t> next = 0;
    const auto work = [&] {
        for (std::size_t i = next++; i < paths.size() && !stop.stop_requested(); i = next++) {
            try {
                readings[i] = readRecording(paths[i], request, stop);
            } catch (const std::bad_alloc&) {
                readings[i] = {}; // a recording that does not fit the memory is a damaged one
            }
        }
    };
    const std::size_t threads =
        std::min<std::size_t>(std::max(1U, std::thread::hardware_concurrency()), paths.size());
    {
        std::vector<std::jthread> others;
        try {
            for (std::size_t i = 1; i < threads; ++i)
                others.emplace_back(work);
        } catch (const std::system_error&) {
            // no further thread: those that there are do it
        }
        work();
    }
    return readings;
}

} // namespace marvo
