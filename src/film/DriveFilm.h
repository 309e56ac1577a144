// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "film/VirtualFilm.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace marvo {

struct ClipIndex;

/// The two cameras of a drive, as places in an array.
enum Camera : unsigned { FrontCamera = 0, RearCamera = 1 };
constexpr std::size_t cameraCount = 2;

/// What the cameras recorded at one time: one recording, or a pair.
struct DriveClip
{
    struct Recording
    {
        std::string path;
        /// When it begins, by the camera's clock; any whole number of milliseconds that all clips count from
        /// the same moment.
        std::optional<std::int64_t> clockMs;
    };
    std::array<std::optional<Recording>, cameraCount> recordings;
    /// The rear's beginning less the front's, where more is known than the clock tells.
    std::optional<std::int64_t> rearOffsetMs;
};

/// A drive as films that can be played: a time line, and on it each camera's recordings.
///
/// The time line ("drive time") is made of what there is to see: it goes on while any camera has a picture,
/// and leaves out the time in which none was recording. Both recordings of a pair stand on it with their
/// offset, and each is played whole. Where a camera's recordings follow one another with the same size and
/// codec they are one film.
struct DriveFilm
{
    struct Recording
    {
        enum class State {
            InFilm,
            Inside, ///< wholly inside another of its camera: not played in the drive
            Damaged ///< nothing in it can be played
        };
        State state = State::Damaged;
        std::size_t clip = 0; ///< the number of its clip, as given
        std::string path;
        std::optional<std::int64_t> clockMs;
        std::int64_t startMs = 0; ///< drive time; of one that is not played, where it would begin
        std::int64_t lengthMs = 0;
        std::int64_t overlapMs = 0; ///< how far its camera has told this time already

        std::int64_t endMs() const { return startMs + (state == State::InFilm ? lengthMs : 0); }
        std::optional<std::int64_t> clockAt(std::int64_t driveMs) const
        {
            return clockMs ? std::optional(*clockMs + driveMs - startMs) : std::nullopt;
        }
    };
    /// Time in which no camera was recording.
    struct Gap
    {
        std::int64_t atMs = 0; ///< drive time
        std::int64_t lengthMs = 0;
    };

    std::array<std::vector<Recording>, cameraCount> recordings;
    std::array<std::vector<std::shared_ptr<const VirtualFilm>>, cameraCount> films;
    std::vector<Gap> gaps;
    std::int64_t lengthMs = 0;

    bool isEmpty() const { return films[FrontCamera].empty() && films[RearCamera].empty(); }
    /// The number of the camera's recording that is shown at a drive time; none where it has no picture.
    std::optional<std::size_t> recordingAt(Camera camera, std::int64_t driveMs) const;
    std::shared_ptr<const VirtualFilm> filmAt(Camera camera, std::int64_t driveMs) const;
};

/// Reads the recordings' indexes and lays them out, in the order in which the clips are given. Some
/// milliseconds a recording, more on a slow card: for a worker. Empty when it was asked to stop.
/// What may be in a film at all is up to `readIndex`: of a recording that cannot be played it gives no
/// chunks.
DriveFilm layOutDrive(const std::vector<DriveClip>& clips,
                      const std::function<ClipIndex(const std::string& path)>& readIndex,
                      const std::stop_token& stop = {});

} // namespace marvo
