// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "report/CardReport.h"

#include "card/CardLayout.h"
#include "drives/Drives.h"
#include "drives/RecordingReading.h"
#include "evidence/Track.h"
#include "media/MediaScan.h"
#include "media/RecordingKinds.h"
#include "settings/FileDataFields.h"
#include "settings/SettingFile.h"
#include "support/FileSource.h"

#include <sys/stat.h>
#include <sys/statvfs.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <set>

namespace marvo {

namespace {

constexpr std::int64_t shortestGapMs = 2'000; // names give whole seconds
constexpr std::size_t clockRecordings = 20;   // enough for a median
constexpr std::int64_t quarterHourMs = 15 * 60 * 1000;

bool isAnyFilm(std::string_view) { return true; }

std::uint64_t fileBytes(const std::string& path)
{
    struct stat facts;
    return ::stat(path.c_str(), &facts) == 0 ? static_cast<std::uint64_t>(facts.st_size) : 0;
}

std::optional<std::int64_t> shareOf(std::size_t kind, const _FILEDATA& settings)
{
    const std::uint32_t shares[] = {settings.sdRatioAlways, settings.sdRatioMotion, settings.sdRatioEvent};
    if (kind >= std::size(shares) || shares[kind] > 100)
        return std::nullopt;
    return shares[kind];
}

/// Of what the camera may keep of a kind, the part that is still free, in recording time.
/// Both cameras record at once, so the time that passes is that of the busier one.
std::optional<std::int64_t> secondsLeft(const KindReport& kind, std::int64_t passedMs,
                                        std::optional<std::int64_t> share, std::uint64_t capacity)
{
    if (!share || capacity == 0 || passedMs == 0 || kind.bytes == 0)
        return std::nullopt;
    const double room = static_cast<double>(capacity) * static_cast<double>(*share) / 100;
    const double bytesPerSecond = static_cast<double>(kind.bytes) * 1000 / static_cast<double>(passedMs);
    return static_cast<std::int64_t>(std::max(0.0, room - static_cast<double>(kind.bytes)) / bytesPerSecond);
}

/// How far the camera's clock is ahead of GPS time in one recording: by its first fix with a time.
std::optional<std::int64_t> clockOffset(const DriveRecording& recording)
{
    if (!recording.name.time)
        return std::nullopt;
    FileSource file(recording.path);
    const RecordingTrack track = readTrack(file, {}, TrackReach::DataArea);
    if (track.readings.empty())
        return std::nullopt;
    for (const TrackFix& fix : track.fixes) {
        if (fix.utcMs)
            return recording.startMs() + fix.timestampMs - track.readings.front().timestampMs - *fix.utcMs;
    }
    return std::nullopt;
}

std::optional<ClockReport> clockOf(const std::vector<DriveRecording>& recordings,
                                   const std::vector<RecordingReading>& readings, const std::stop_token& stop)
{
    std::vector<std::int64_t> offsets;
    for (std::size_t i = recordings.size(); i-- > 0 && offsets.size() < clockRecordings;) {
        if (stop.stop_requested())
            return std::nullopt;
        if (!readings[i].hasFix)
            continue;
        if (const auto offset = clockOffset(recordings[i]))
            offsets.push_back(*offset);
    }
    if (offsets.empty())
        return std::nullopt;
    std::ranges::nth_element(offsets, offsets.begin() + static_cast<std::ptrdiff_t>(offsets.size() / 2));
    const std::int64_t median = offsets[offsets.size() / 2];
    const auto quarters = std::llround(static_cast<double>(median) / quarterHourMs);
    return ClockReport{quarters * 15, median - quarters * quarterHourMs};
}

std::vector<ChangedSetting> changesIn(const _FILEDATA& record)
{
    std::vector<ChangedSetting> changes;
    for (const FileDataField& field : fileDataFields()) {
        if (field.name == "checksum" || field.name == "magic")
            continue;
        if (field.isText()) {
            if (!field.text(record).empty())
                changes.push_back({field.name, std::string(field.text(record)), {}});
        } else if (field.number(record) != field.defaultValue) {
            changes.push_back(
                {field.name, std::to_string(field.number(record)), std::to_string(field.defaultValue)});
        }
    }
    return changes;
}

void addGaps(const std::vector<Drive>& drives, CardReport& report)
{
    for (const Drive& drive : drives) {
        if (!drive.hasTime)
            continue;
        ++report.drives;
        std::int64_t endMs = drive.clips.front().endMs;
        for (const Clip& clip : drive.clips) {
            if (clip.startMs - endMs > shortestGapMs)
                report.gaps.push_back({endMs, clip.startMs - endMs});
            endMs = std::max(endMs, clip.endMs);
        }
    }
}

} // namespace

CardReport reportCard(const std::string& folder, const std::stop_token& stop)
{
    CardReport report;
    const MediaScan all = scanFolder(folder, isAnyFilm, stop);
    report.error = all.folderError;
    std::vector<std::string> paths;
    std::set<std::string_view> listed;
    const MediaScan list = scanFolder(folder, stop);
    for (const MRVMedia& media : list.medias)
        listed.insert(media.path());
    for (const MRVMedia& media : all.medias) {
        if (!listed.contains(media.path()))
            report.leftOut.push_back(media.path());
        if (isDriveRecording(media.path()))
            paths.push_back(media.path());
    }
    std::ranges::sort(report.leftOut);

    const std::vector<RecordingReading> readings = readRecordings(paths, {}, stop);
    std::vector<DriveRecording> recordings;
    std::array<std::array<std::int64_t, 2>, recordingKinds.size()> passedMs{}; // of the front and the rear
    for (const RecordingKind& kind : recordingKinds)
        report.kinds.push_back({kind.name, 0, 0, 0, {}});
    for (std::size_t i = 0; i < paths.size(); ++i) {
        recordings.push_back({paths[i], nameFacts(paths[i]), readings[i].durationMs});
        const auto kind = static_cast<std::size_t>(std::max(recordings[i].name.kind, 0));
        if (kind < report.kinds.size()) {
            ++report.kinds[kind].count;
            report.kinds[kind].lengthMs += readings[i].durationMs;
            passedMs[kind][recordings[i].name.isRear ? 1 : 0] += readings[i].durationMs;
            report.kinds[kind].bytes += fileBytes(paths[i]);
        }
        if (readings[i].isDamaged)
            report.damaged.push_back({paths[i], readings[i].isPlayable ? DamagedRecording::Why::OtherCount
                                                                       : DamagedRecording::Why::Unplayable});
    }
    addGaps(groupDrives(recordings), report);
    report.clock = clockOf(recordings, readings, stop);

    struct statvfs system;
    if (::statvfs(folder.c_str(), &system) == 0)
        report.capacity = std::uint64_t{system.f_blocks} * system.f_frsize;
    _FILEDATA settings;
    if (readSettingFile(folder + "/" + settingsFileName, settings)) {
        report.hasSettings = true;
        report.changedSettings = changesIn(settings);
        for (std::size_t kind = 0; kind < report.kinds.size(); ++kind)
            report.kinds[kind].secondsLeft = secondsLeft(report.kinds[kind], std::ranges::max(passedMs[kind]),
                                                         shareOf(kind, settings), report.capacity);
    }
    return report;
}

} // namespace marvo
