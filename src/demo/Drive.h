// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "demo/Route.h"

#include <vector>

namespace marvo::demo {

/// How the car moves at one moment.
struct Motion
{
    double distance = 0;     ///< metres along the route
    double speed = 0;        ///< m/s
    double acceleration = 0; ///< m/s², negative when braking
    double lateral = 0;      ///< m/s², positive in a bend to the right
};

/// One drive along the route, second by second: starting off, bends taken at a sensible speed, two tunnels,
/// an emergency braking, a traffic light, a turn, parking. The same every time.
class Drive
{
public:
    Drive();

    const Route& route() const { return m_route; }
    double duration() const; ///< seconds until the car stands parked
    /// Before the start and after the end the car stands.
    Motion at(double seconds) const;

    /// How far to the right of its lane the car is, in metres: it is parked at the kerb.
    double kerbside(double distance) const;

    double brakingTime() const { return m_brakingTime; } ///< when the emergency braking begins
    double greenTime() const { return m_greenTime; }     ///< when the traffic light turns green

private:
    Route m_route;
    std::vector<Motion> m_motion; ///< stepsPerSecond a second
    double m_brakingTime = 0;
    double m_greenTime = 0;
};

} // namespace marvo::demo
