// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "recording/MRVBlackBoxData.h"
#include "recording/Positions.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace marvo {

/// From which g on a reading is an impact: |x|, |y|, |z - 1|.
struct ImpactThresholds
{
    double x = 0.55;
    double y = 0.70;
    double z = 0.50;
};

/// Something that happened in a recording.
struct DriveEvent
{
    /// In the order in which events of one moment stand.
    enum class Kind { Event, Motion, Impact, Braking, Acceleration };

    Kind kind = Kind::Event;
    std::int64_t offsetMs = 0;           ///< in its recording
    std::optional<double> strength = {}; ///< g; none of an event or motion recording
    std::optional<DecimalPosition> place = {};
};

/// The name of a kind, as the command line tool writes it.
const char* eventKindName(DriveEvent::Kind kind);

/// Readings over the thresholds; those less than a second after the one before are one event, told by the
/// strongest. Readings are spread evenly over the film: reading i of n is at i x length / n.
std::vector<DriveEvent> impactsOf(const MRVBlackBoxData& data, std::int64_t lengthMs,
                                  const ImpactThresholds& thresholds);

/// Braking and acceleration: between sentences 0.5 to 1.5 s apart the speed changes by 0.35 to 1.2 g.
/// Neighbours of one sign are one event, told by the strongest.
std::vector<DriveEvent> speedChangesOf(const MRVBlackBoxData& data, std::int64_t lengthMs);

} // namespace marvo
