// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "recording/MRVBlackBoxData.h"
#include "recording/Positions.h"

#include <cstdint>
#include <optional>

namespace marvo {

/// One recording in a few numbers. Samples that cannot be a place on earth (out of range, not a number, or
/// the 0/0 of a receiver without a fix) do not count as fixes. Readings and speeds that are not finite are
/// left out.
struct RecordingSummary
{
    struct Fix
    {
        DecimalPosition position;
        std::int64_t timestampMs = 0;
    };
    struct Speed
    {
        double speed = 0; ///< in the camera's unit, which the marker byte hints at
        unsigned char KM = 0;
        std::int64_t timestampMs = 0;
    };
    struct Reading
    {
        MRVGSensor axes;
        double magnitude = 0; ///< length of the vector, in g
        std::int64_t timestampMs = 0;
    };

    std::optional<double> durationSeconds; ///< from the earliest to the latest time of any sample
    double beginMs = 0;                    ///< the earliest time of any sample
    std::optional<Fix> firstFix;
    std::optional<Fix> lastFix;
    double distanceMetres = 0; ///< along the great circles from fix to fix
    std::optional<Speed> topSpeed;
    std::optional<Reading> strongestReading;
};

RecordingSummary summarise(const MRVBlackBoxData& recording);
/// The same with the hemispheres of other snapshots.
RecordingSummary summarise(const MRVBlackBoxData& recording,
                           const std::vector<std::shared_ptr<const MRVGpsData>>& snapshots);

/// Great-circle distance by the haversine formula on a sphere of the earth's mean radius.
double distanceMetres(DecimalPosition from, DecimalPosition to);

} // namespace marvo
