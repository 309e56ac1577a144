// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "demo/Drive.h"
#include "demo/RoadView.h"

#include <vector>

namespace marvo::demo {

enum class Travel { OurWay, Towards };

/// Another vehicle on the road.
struct Vehicle
{
    double distance = 0; ///< of its middle, in metres along our route
    double aside = 0;    ///< of its middle, in metres to the right of our lane's middle
    Travel travel = Travel::OurWay;
    Colour paint;
    bool braking = false;

    static constexpr double length = 4.4; ///< metres
};

inline constexpr double laneWidth = 3.2; ///< metres

/// The vehicles around us at a moment of the drive: one ahead, one behind, some in the other lanes, and the
/// car that cuts in and makes us brake.
std::vector<Vehicle> trafficAt(const Drive& drive, double seconds);
void drawVehicle(RoadView& view, const Vehicle& vehicle);

} // namespace marvo::demo
