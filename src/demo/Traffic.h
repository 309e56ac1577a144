// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "demo/Canvas.h"
#include "demo/Drive.h"

#include <vector>

namespace marvo::demo {

enum class VehicleKind { Car, Van, Bus };
enum class Travel { OurWay, Towards };

/// Sizes in metres, and where the roof begins and ends as shares of the length from the rear.
struct VehicleBody
{
    double length;
    double width;
    double belt; ///< height at which the windows begin
    double height;
    double roofInset; ///< how much narrower the roof is on each side, as a share
    double roofBegin;
    double roofEnd;
};
const VehicleBody& bodyOf(VehicleKind kind);

/// Another vehicle on the road.
struct Vehicle
{
    double distance = 0; ///< of its middle, in metres along our route
    double aside = 0;    ///< of its middle, in metres to the right of our lane's middle
    VehicleKind kind = VehicleKind::Car;
    Travel travel = Travel::OurWay;
    Colour paint;
    bool braking = false;
};

inline constexpr double laneWidth = 3.2; ///< metres

/// The vehicles around us at a moment of the drive: one ahead, one behind, some in the other lanes, and the
/// car that cuts in and makes us brake.
std::vector<Vehicle> trafficAt(const Drive& drive, double seconds);

} // namespace marvo::demo
