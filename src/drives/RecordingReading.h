// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "drives/Events.h"
#include "recording/RecordingSummary.h"

#include <cstdint>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace marvo {

/// What reading one recording tells a drive. Only its headers, index and data area are read, never its film;
/// without an index that agrees, the heads of its chunks.
struct RecordingReading
{
    std::int64_t durationMs = 0; ///< cut; 0 when unknown
    bool isPlayable = false;     ///< there is a picture
    bool isDamaged = true;       ///< not playable, or header and index tell of other numbers of pictures
    bool hasFix = false;
    bool hasReading = false;
    double distanceMetres = 0;
    std::optional<double> topSpeedKmh; ///< none where no sentence tells a speed
    std::optional<DecimalPosition> firstFix;
    std::vector<DriveEvent> impacts;  ///< over the thresholds given
    std::vector<DriveEvent> speeding; ///< braking and acceleration
};

/// Which of a recording's facts are wanted.
struct ReadingRequest
{
    ImpactThresholds thresholds;
};

/// Reads a recording on the calling thread. A requested stop gives whatever was read.
RecordingReading readRecording(const std::string& path, const ReadingRequest& request = {},
                               std::stop_token stop = {});

/// The same for many, on as many threads as the machine has processors; in the order given.
std::vector<RecordingReading> readRecordings(const std::vector<std::string>& paths,
                                             const ReadingRequest& request = {}, std::stop_token stop = {});

} // namespace marvo
