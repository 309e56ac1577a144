// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "drives/RecordingTime.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace marvo {

/// A recording as far as grouping needs it.
struct DriveRecording
{
    std::string path;
    NameFacts name;
    std::int64_t durationMs = 0; ///< 0 when unknown

    /// Of its first picture on the camera's clock; only of one with a time.
    std::int64_t startMs() const { return secondsOf(*name.time) * 1000; }
};

/// What both cameras recorded at one time; one of the two at least. Numbers are those of the recordings
/// grouped.
struct Clip
{
    std::optional<std::size_t> front = {};
    std::optional<std::size_t> rear = {};
    std::int64_t startMs = 0; ///< on the camera's clock; 0 in the group without a time
    std::int64_t endMs = 0;
    /// The one that begins it, the front's at a tie.
    std::size_t first(const std::vector<DriveRecording>& recordings) const;
};

/// Clips that follow each other. The group of those without a time stands last.
struct Drive
{
    bool hasTime = true;
    std::int64_t startMs = 0;
    std::int64_t endMs = 0; ///< the latest end of its clips
    std::vector<Clip> clips = {};
};

/// A front and a rear recording of a kind are one clip when they begin within so many seconds.
inline constexpr std::int64_t longestPairOffsetMs = 2'000;
/// A clip that begins so much later than all before it have ended begins another drive.
inline constexpr std::int64_t longestPauseMs = 300'000;

/// Groups recordings into drives. Of all possible pairs those with the smallest difference come first, then
/// the earlier, then by the front's path, then by the rear's. Clips stand by beginning, higher kind, path;
/// those without a time in the order given.
std::vector<Drive> groupDrives(const std::vector<DriveRecording>& recordings);

} // namespace marvo
