// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace marvo {

/// The recordings of one kind.
struct KindReport
{
    std::string_view name; ///< one English word
    std::size_t count = 0;
    std::int64_t lengthMs = 0; ///< of those whose length is known
    std::uint64_t bytes = 0;
    /// Seconds of recording until the camera begins to overwrite this kind, by its share of the card and what
    /// it has recorded an hour; 0 when it does already. None where share, size or length are not known.
    std::optional<std::int64_t> secondsLeft;
};

struct DamagedRecording
{
    enum class Why {
        Unplayable, ///< not one picture can be shown
        OtherCount  ///< the header or the index tells of another number of pictures than there are
    };
    std::string path;
    Why why = Why::Unplayable;
};

/// Time inside a drive of which there is no recording.
struct DriveGap
{
    std::int64_t startMs = 0; ///< on the camera's clock
    std::int64_t lengthMs = 0;
};

struct ChangedSetting
{
    std::string_view name;
    std::string value;
    std::string standard; ///< what a new camera has
};

/// The camera's clock beside GPS time: the median of their differences over the recordings, split into a zone
/// of whole quarters of an hour and the rest, which is the clock's error.
struct ClockReport
{
    std::int64_t zoneMinutes = 0;
    std::int64_t errorMs = 0; ///< positive: the camera is ahead
};

struct CardReport
{
    std::error_code error; ///< why the folder could not be listed, or not to its end
    std::vector<KindReport> kinds;
    std::vector<DamagedRecording> damaged;
    std::vector<std::string> leftOut; ///< films that the recording list leaves out, by path
    std::size_t drives = 0;
    std::vector<DriveGap> gaps;
    std::optional<ClockReport> clock;
    bool hasSettings = false;
    std::vector<ChangedSetting> changedSettings;
    std::uint64_t capacity = 0; ///< bytes of the file system; 0 when unknown
};

/// Looks through a mounted card or a copy of one. Reads headers, indexes and data areas, never films, and
/// writes nothing. For a worker; a requested stop ends it with what it has.
CardReport reportCard(const std::string& folder, const std::stop_token& stop = {});

} // namespace marvo
