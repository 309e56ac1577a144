// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "film/DriveFilm.h"

#include "film/VirtualFilmBuilder.h"

#include <algorithm>
#include <utility>

namespace marvo {

namespace {

/// Names give whole seconds, and cameras take a moment between two recordings: up to this nothing is missing.
constexpr std::int64_t gapMs = 2000;
/// A camera without a picture for longer than this is said to have none; up to this its last one stands.
constexpr std::int64_t longestHoldMs = 1000;
/// A pair's recordings begin within two seconds of one another; more than this is no offset.
constexpr std::int64_t largestOffsetMs = 10'000;

using Recording = DriveFilm::Recording;
using Place = std::array<std::optional<Recording>, cameraCount>; ///< of one clip

struct OpenFilm
{
    std::optional<VirtualFilmBuilder> builder;
    std::int64_t endMs = 0;
};

class Layout
{
public:
    explicit Layout(const std::vector<DriveClip>& clips) : m_clips(clips) {}

    void read(const std::function<ClipIndex(const std::string&)>& readIndex, const std::stop_token& stop);
    DriveFilm place();

private:
    void markInside();
    std::int64_t beginningOf(const Place& place, std::int64_t rearOffsetMs);
    void add(Camera camera, Recording recording, ClipIndex index);
    void close(Camera camera);

    const std::vector<DriveClip>& m_clips;
    std::vector<Place> m_places;
    std::vector<std::array<ClipIndex, cameraCount>> m_indexes;

    DriveFilm m_drive;
    std::array<OpenFilm, cameraCount> m_open;
    std::array<std::int64_t, cameraCount> m_endMs{};                     ///< drive time
    std::array<std::optional<std::int64_t>, cameraCount> m_clockEndMs{}; ///< the latest so far
    std::int64_t m_beginMs = 0;                                          ///< of the clip before
    std::optional<std::int64_t> m_beginClockMs;
};

void Layout::read(const std::function<ClipIndex(const std::string&)>& readIndex, const std::stop_token& stop)
{
    for (std::size_t clip = 0; clip < m_clips.size() && !stop.stop_requested(); ++clip) {
        Place place;
        std::array<ClipIndex, cameraCount> indexes;
        for (const Camera camera : {FrontCamera, RearCamera}) {
            const auto& given = m_clips[clip].recordings[camera];
            if (!given)
                continue;
            indexes[camera] = readIndex(given->path);
            Recording recording{Recording::State::Damaged, clip, given->path, given->clockMs};
            recording.lengthMs = VirtualFilmBuilder::lengthMs(indexes[camera]);
            if (recording.lengthMs > 0)
                recording.state = Recording::State::InFilm;
            place[camera] = std::move(recording);
        }
        m_places.push_back(std::move(place));
        m_indexes.push_back(std::move(indexes));
    }
    markInside();
}

void Layout::markInside()
{
    const auto isIn = [](const Recording& one, const Recording& other) {
        return other.clockMs && other.state == Recording::State::InFilm && *other.clockMs <= *one.clockMs &&
               *one.clockMs + one.lengthMs <= *other.clockMs + other.lengthMs;
    };
    for (const Camera camera : {FrontCamera, RearCamera}) {
        for (Place& place : m_places) {
            std::optional<Recording>& one = place[camera];
            if (!one || !one->clockMs || one->state != Recording::State::InFilm)
                continue;
            const auto holdsIt = [&](const Place& other) {
                return &other != &place && other[camera] && isIn(*one, *other[camera]);
            };
            if (std::ranges::any_of(m_places, holdsIt))
                one->state = Recording::State::Inside;
        }
    }
}

std::optional<std::int64_t> beginClock(const Place& place)
{
    std::optional<std::int64_t> earliest;
    for (const auto& recording : place) {
        if (recording && recording->clockMs)
            earliest = std::min(earliest.value_or(*recording->clockMs), *recording->clockMs);
    }
    return earliest;
}

/// Where a clip begins on the time line; a gap before it is noted.
std::int64_t Layout::beginningOf(const Place& place, std::int64_t rearOffsetMs)
{
    // A camera's recordings follow one another; nothing is played before what comes before it in the list.
    std::int64_t earliestMs = m_beginMs;
    bool goesOn = false; // one of its cameras was recording until now
    const std::optional<std::int64_t> clockMs = beginClock(place);
    for (const Camera camera : {FrontCamera, RearCamera}) {
        const auto& recording = place[camera];
        if (!recording || recording->state != Recording::State::InFilm)
            continue;
        const std::int64_t insideMs =
            std::max<std::int64_t>(camera == RearCamera ? rearOffsetMs : -rearOffsetMs, 0);
        earliestMs = std::max(earliestMs, m_endMs[camera] - insideMs);
        goesOn = goesOn || (recording->clockMs && m_clockEndMs[camera] &&
                            *recording->clockMs - *m_clockEndMs[camera] <= gapMs);
    }
    const std::int64_t allEndMs = std::max({earliestMs, m_endMs[FrontCamera], m_endMs[RearCamera]});
    const auto latestClock = std::max(m_clockEndMs[FrontCamera], m_clockEndMs[RearCamera]);
    if (!clockMs || !latestClock || !m_beginClockMs)
        return allEndMs;
    if (*clockMs - *latestClock > gapMs) {
        m_drive.gaps.push_back({allEndMs, *clockMs - *latestClock});
        return allEndMs;
    }
    if (goesOn)
        return earliestMs;
    return std::clamp(m_beginMs + (*clockMs - *m_beginClockMs), earliestMs, allEndMs);
}

void Layout::close(Camera camera)
{
    if (std::optional<VirtualFilmBuilder> builder = std::exchange(m_open[camera].builder, std::nullopt))
        m_drive.films[camera].push_back(builder->finish());
}

void Layout::add(Camera camera, Recording recording, ClipIndex index)
{
    OpenFilm& open = m_open[camera];
    if (recording.state == Recording::State::InFilm) {
        if (open.builder && (!open.builder->fits(index) || recording.startMs - open.endMs > longestHoldMs))
            close(camera);
        if (!open.builder)
            open.builder.emplace(recording.startMs);
        open.builder->append(recording.path, index, recording.startMs);
        open.endMs = m_endMs[camera] = recording.endMs();
        m_drive.lengthMs = std::max(m_drive.lengthMs, recording.endMs());
    }
    if (recording.clockMs) {
        const std::int64_t toldMs = m_clockEndMs[camera].value_or(*recording.clockMs) - *recording.clockMs;
        if (toldMs >= gapMs && recording.state == Recording::State::InFilm)
            recording.overlapMs = toldMs;
        m_clockEndMs[camera] =
            std::max(m_clockEndMs[camera], std::optional(*recording.clockMs + recording.lengthMs));
    }
    m_drive.recordings[camera].push_back(std::move(recording));
}

DriveFilm Layout::place()
{
    for (std::size_t clip = 0; clip < m_places.size(); ++clip) {
        Place& place = m_places[clip];
        auto& [front, rear] = place;
        std::int64_t rearOffsetMs = 0;
        const auto isShown = [](const auto& recording) {
            return recording && recording->state == Recording::State::InFilm;
        };
        if (isShown(front) && isShown(rear)) {
            if (front->clockMs && rear->clockMs)
                rearOffsetMs = *rear->clockMs - *front->clockMs;
            rearOffsetMs = m_clips[clip].rearOffsetMs.value_or(rearOffsetMs);
            rearOffsetMs = std::clamp(rearOffsetMs, -largestOffsetMs, largestOffsetMs);
        }
        const bool isPlayed = isShown(front) || isShown(rear);
        const std::int64_t beginMs =
            isPlayed ? beginningOf(place, rearOffsetMs) : std::max(m_endMs[FrontCamera], m_endMs[RearCamera]);
        if (isPlayed) {
            m_beginMs = beginMs;
            m_beginClockMs = beginClock(place);
        }
        for (const Camera camera : {FrontCamera, RearCamera}) {
            if (!place[camera])
                continue;
            const std::int64_t insideMs = camera == RearCamera ? rearOffsetMs : -rearOffsetMs;
            place[camera]->startMs = beginMs + std::max<std::int64_t>(insideMs, 0);
            add(camera, std::move(*place[camera]), std::exchange(m_indexes[clip][camera], {}));
        }
    }
    close(FrontCamera);
    close(RearCamera);
    return std::move(m_drive);
}

} // namespace

std::optional<std::size_t> DriveFilm::recordingAt(Camera camera, std::int64_t driveMs) const
{
    std::optional<std::size_t> found;
    for (std::size_t i = 0; i < recordings[camera].size(); ++i) {
        const Recording& recording = recordings[camera][i];
        if (recording.state == Recording::State::InFilm && recording.startMs <= driveMs)
            found = i;
    }
    if (!found || driveMs >= recordings[camera][*found].endMs() + longestHoldMs)
        return {};
    const auto film = filmAt(camera, driveMs);
    return film ? found : std::nullopt;
}

std::shared_ptr<const VirtualFilm> DriveFilm::filmAt(Camera camera, std::int64_t driveMs) const
{
    for (const auto& film : films[camera]) {
        if (film->startMs() <= driveMs && driveMs < film->endMs())
            return film;
    }
    return nullptr;
}

DriveFilm layOutDrive(const std::vector<DriveClip>& clips,
                      const std::function<ClipIndex(const std::string& path)>& readIndex,
                      const std::stop_token& stop)
{
    Layout layout(clips);
    layout.read(readIndex, stop);
    return stop.stop_requested() ? DriveFilm() : layout.place();
}

} // namespace marvo
