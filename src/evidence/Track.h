// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "recording/Positions.h"
#include "recording/SampleRecords.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace marvo {

class ByteSource;

/// One GPS record of a recording, as far as it is known.
struct TrackFix
{
    std::int64_t timestampMs = 0; ///< the camera's, as recorded
    /// Absent without a fix: for 0/0, for a place that is not on earth, and where the record's own sentences
    /// say that there is none.
    std::optional<DecimalPosition> place;
    std::optional<std::int64_t> utcMs; ///< milliseconds since 1970, from this record's own valid RMC sentence
    std::optional<double> speedKmh;    ///< over ground, from the same sentence
    std::optional<double> course;      ///< degrees, 0 to below 360, from the same sentence
    std::optional<double> hdop;        ///< from this record's GGA sentence
    std::optional<int> satellites;     ///< used, from the same sentence
    double cameraSpeed = 0;            ///< as recorded, unit not known
    unsigned char marker = 0;          ///< KM
};

/// One reading of the G-sensor, with the GPS record that belongs to it.
struct TrackReading
{
    std::int64_t timestampMs = 0; ///< the camera's, as recorded
    MRVGSensor axes;
    std::optional<std::size_t> fix; ///< index in RecordingTrack::fixes
};

/// Where one recording was made, and what its G-sensor gave.
struct RecordingTrack
{
    std::string name; ///< the file's, bytes
    std::vector<TrackFix> fixes;
    std::vector<TrackReading> readings;
    bool isWhole = false; ///< the data area was read to its end
};

/// Reads a recording's data area. Hemispheres follow the snapshots, as in the window.
enum class TrackReach {
    Film,    ///< as the window does: on through the film where the data area does not end
    DataArea ///< to the end of the data area's declared size, for many recordings in a row
};
RecordingTrack readTrack(ByteSource& source, std::string name, TrackReach reach = TrackReach::Film);

/// Fixes with a place that follow each other without a gap, in order.
using TrackSegment = std::vector<const TrackFix*>;

/// All segments of recordings, which are in the order of time. A new one begins with each recording whose GPS
/// time does not follow within 5 s, after a record without a place, and after 5 s without a record.
std::vector<TrackSegment> segmentsOf(const std::vector<RecordingTrack>& tracks);

} // namespace marvo
