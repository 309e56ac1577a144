// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "demo/RoadView.h"
#include "demo/Traffic.h"

namespace marvo::demo {

// Where things stand across the road, in metres to the right of our lane's middle.
inline constexpr double medianAside = -1.5 * laneWidth; ///< the yellow line between the directions
inline constexpr double leftKerb = medianAside - 2.6 * laneWidth;
inline constexpr double rightKerb = 1.5 * laneWidth + 0.4;
inline constexpr double pavementWidth = 4;

// Each draws what stands on a piece of the way, `from` nearer to the camera than `to`; both in metres along
// the route. Called from the farthest piece to the nearest.
void drawRoad(RoadView& view, const Route& route, double from, double to);
void drawTunnel(RoadView& view, const Stretch& tunnel, double from, double to);
void drawPortal(RoadView& view, double mouth);
void drawBuildings(RoadView& view, const Route& route, double from, double to);
void drawTrafficLight(RoadView& view, double along, bool green);

} // namespace marvo::demo
