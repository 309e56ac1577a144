// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <vector>

namespace marvo::demo {

struct GeoPoint
{
    double latitude = 0; ///< decimal degrees, north positive
    double longitude = 0;
};

/// A stretch of the way, in metres from its start.
struct Stretch
{
    double from = 0;
    double to = 0;

    bool contains(double distance) const { return distance >= from && distance <= to; }
};

/// A place on the way in a flat frame: metres east and north of the way's start.
struct Place
{
    double east = 0;
    double north = 0;
    double directionEast = 0; ///< the way's direction, of length 1
    double directionNorth = 1;

    double headingRad() const; ///< clockwise from north
};

/// The way of the demo drive through Seoul: along Seongsan-ro through Geumhwa tunnel, past Dongnimmun and
/// through Sajik tunnel onto Sajik-ro, past Gyeongbokgung and left into Samcheong-ro. The line is drawn from
/// general knowledge of the city, good to some tens of metres.
class Route
{
public:
    Route();

    double length() const; ///< metres
    /// Before the start and after the end the way goes straight on.
    Place at(double distance) const;
    GeoPoint geoPoint(double distance) const;
    double curvature(double distance) const; ///< 1/m, positive in a bend to the right

    std::span<const Stretch> tunnels() const { return m_tunnels; }
    const Stretch* tunnelAt(double distance) const;
    double trafficLight() const { return m_trafficLight; } ///< where the cars stop
    double brakingPoint() const { return m_brakingPoint; } ///< where a car cuts in

private:
    std::vector<Place> m_places; ///< one a metre
    std::vector<double> m_curvature;
    std::vector<Stretch> m_tunnels;
    double m_trafficLight = 0;
    double m_brakingPoint = 0;
};

} // namespace marvo::demo
