// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "demo/Drive.h"

#include <string>
#include <vector>

namespace marvo::demo {

/// The receiver's data at a full second of the drive.
struct Fix
{
    bool valid = false; ///< false in tunnels: then there is no position, speed or course
    GeoPoint position;
    double speedKmh = 0;
    double courseDegrees = 0;
    double altitude = 0; ///< metres
    double hdop = 0;
    std::vector<int> used; ///< numbers of the satellites used
};

/// Degrees in the form that NMEA 0183 writes them: ddmm.mmmm, to four decimals of a minute.
double nmeaDegrees(double degrees);

/// The GPS receiver of the demo drive. It loses the fix soon after the entrance of a tunnel and finds it
/// again shortly after the exit.
class GpsReceiver
{
public:
    explicit GpsReceiver(const Drive& drive) : m_drive(drive) {}

    Fix fixAt(int second) const;
    /// The sentences of one second: RMC, GGA, GSA and GSV of the talker GP, each ended by CR LF, with right
    /// checksums; without a fix the fields are empty as receivers leave them. At most nmeaLimit bytes.
    std::string sentencesAt(int second) const;

private:
    bool hasSight(double seconds) const;
    int signal(std::size_t satellite, int second) const; ///< dB-Hz, 0 when not heard

    const Drive& m_drive;
};

} // namespace marvo::demo
