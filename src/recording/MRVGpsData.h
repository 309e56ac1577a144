// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "recording/SampleRecords.h"

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace marvo {

/// One receiver channel: satellite number and signal-to-noise ratio.
struct _PAIR
{
    std::uint8_t first = 0;
    std::uint8_t second = 0;

    bool operator==(const _PAIR&) const = default;
};

/// The GPS state that NMEA 0183 sentences build up field by field. Positions are kept as the sentences write
/// them (degrees and minutes, unsigned), speed in knots. Every number was read at single precision.
struct MRVGpsData
{
    static constexpr std::size_t channelCount = 12;

    std::array<_PAIR, channelCount> SVonChannel{};          ///< satellites in view (GSV)
    std::array<std::uint8_t, channelCount> SatelliteUsed{}; ///< numbers of the satellites used (GSA)
    char NS = 'N';                                          ///< hemisphere of the latitude (GGA)
    char EW = 'E';                                          ///< hemisphere of the longitude (GGA)
    std::uint32_t SatelliteCount = 0;                       ///< in view (GSV)
    std::uint32_t SatelliteUsedCount = 0;                   ///< used in the fix (GGA)
    double PDOP = 0;
    double HDOP = 0;
    double VDOP = 0;
    double Latitude = 0;         ///< ddmm.mmmm
    double Longitude = 0;        ///< dddmm.mmmm
    double SpeedOverGround = 0;  ///< knots (RMC)
    double CourseOverGround = 0; ///< degrees (RMC)
    _SYSTEMTIME Now;             ///< UTC (RMC)

    bool operator==(const MRVGpsData&) const = default;
};

/// Appends a state to a recording's list. A state equal to the last one shares its object, so that a hostile
/// text of many short sentences does not multiply in memory.
void appendSnapshot(std::vector<std::shared_ptr<const MRVGpsData>>& snapshots, const MRVGpsData& state);

} // namespace marvo
