// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace marvo {

/// The camera's GPS header. In the file it takes 41 bytes, packed, little-endian; see docs/formats.md.
struct _AVI_GPS_DATA_T
{
    std::int64_t nTimestamp = 0;        ///< time of the fix in milliseconds
    std::int32_t dwExtLength = 0;       ///< bytes of NMEA text that follow the header in the file
    std::int32_t nQualityIndicator = 0; ///< carried, not interpreted
    double fLatitude = 0;  ///< NMEA degrees and minutes (ddmm.mmmm); the sign comes from the NMEA state
    double fLongitude = 0; ///< NMEA degrees and minutes (dddmm.mmmm)
    double fSpeed = 0;     ///< as the camera recorded it
    unsigned char KM = 0;  ///< marker byte: '1' and '9' select the long trailer and a speed conversion
};

/// One raw G-sensor record; 24 bytes in the file, little-endian.
struct _AVI_GSENSOR_DATA_T
{
    std::int64_t nTimestamp = 0;   ///< time of the reading in milliseconds
    std::int32_t xAxis = 0;        ///< 1/256 g
    std::int32_t yAxis = 0;        ///< 1/256 g
    std::int32_t zAxis = 0;        ///< 1/256 g
    std::int32_t nTemperature = 0; ///< carried, not interpreted
};

/// A calendar time. The producers in this system leave wDayOfWeek at 0.
struct _SYSTEMTIME
{
    std::uint16_t wYear = 0;
    std::uint16_t wMonth = 0;
    std::uint16_t wDayOfWeek = 0;
    std::uint16_t wDay = 0;
    std::uint16_t wHour = 0;
    std::uint16_t wMinute = 0;
    std::uint16_t wSecond = 0;
    std::uint16_t wMilliseconds = 0;

    bool operator==(const _SYSTEMTIME&) const = default;
};

/// A G-sensor reading in g.
struct MRVGSensor
{
    float x = 0;
    float y = 0;
    float z = 0;

    bool operator==(const MRVGSensor&) const = default;
};

/// A change of the event type among a recording's time blocks.
struct MRVTimeEvent
{
    std::uint32_t e = 0; ///< 0 for an event of type 1, 1 for any other type
    std::uint32_t f = 0; ///< index of the time block at which the type changed
    _SYSTEMTIME t;       ///< UTC time of that block
};

} // namespace marvo
