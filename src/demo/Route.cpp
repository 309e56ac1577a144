// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/Route.h"

#include "demo/Noise.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace marvo::demo {

namespace {

enum Waypoint : std::size_t {
    Start,
    EwhaRearGate,
    GeumhwaWest,
    GeumhwaEast,
    Ramp,
    Dongnimmun,
    SajikWest,
    SajikEast,
    SajikBend,
    SajikPark,
    SajikRo,
    GyeongbokgungStation,
    Gwanghwamun,
    Dongsipjagak,
    SamcheongRo,
    End,
    WaypointCount
};

constexpr std::array<GeoPoint, WaypointCount> waypoints{{
    {37.5644, 126.9445},
    {37.5655, 126.9465},
    {37.5672, 126.9497},
    {37.5700, 126.9551},
    {37.5711, 126.9575},
    {37.5716, 126.9595},
    {37.5725, 126.9622},
    {37.5731, 126.9637},
    {37.5742, 126.9658},
    {37.5755, 126.9680},
    {37.5758, 126.9705},
    {37.5760, 126.9731},
    {37.5758, 126.9769},
    {37.5757, 126.9803},
    {37.5768, 126.9805},
    {37.5777, 126.9808},
}};

constexpr double metresPerDegree = 111'195; // of latitude, on a sphere of 6371 km

double metresPerDegreeEast()
{
    return metresPerDegree * std::cos(waypoints[Start].latitude * std::numbers::pi / 180);
}

/// Rounds the corners of the line by averaging over some metres: wide on the open road, tight at a crossing.
std::vector<Place> smoothed(const std::vector<Place>& line, double crossing)
{
    const auto count = static_cast<std::ptrdiff_t>(line.size());
    std::vector<Place> out(line.size());
    for (std::ptrdiff_t i = 0; i < count; ++i) {
        const double wanted = std::min(40.0, 11 + std::abs(static_cast<double>(i) - crossing) * 0.35);
        const auto reach = std::min({static_cast<std::ptrdiff_t>(wanted), i, count - 1 - i});
        Place sum;
        double weights = 0;
        for (std::ptrdiff_t j = -reach; j <= reach; ++j) {
            const double weight = static_cast<double>(reach + 1 - std::abs(j));
            sum.east += weight * line[i + j].east;
            sum.north += weight * line[i + j].north;
            weights += weight;
        }
        out[i] = {sum.east / weights, sum.north / weights};
    }
    return out;
}

/// Points a metre apart along a line of any corners, and where along it each corner lies.
std::vector<Place> metreSteps(const std::vector<Place>& corners, std::vector<double>* distances = nullptr)
{
    std::vector<Place> out{corners.front()};
    double travelled = 0;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        if (i > 0) {
            const Place& a = corners[i - 1];
            const Place& b = corners[i];
            const double length = std::hypot(b.east - a.east, b.north - a.north);
            while (static_cast<double>(out.size()) <= travelled + length) {
                const double share = (static_cast<double>(out.size()) - travelled) / length;
                out.push_back({std::lerp(a.east, b.east, share), std::lerp(a.north, b.north, share)});
            }
            travelled += length;
        }
        if (distances != nullptr)
            distances->push_back(travelled);
    }
    return out;
}

void setDirections(std::vector<Place>& places)
{
    for (std::size_t i = 0; i < places.size(); ++i) {
        const Place& before = places[i == 0 ? 0 : i - 1];
        const Place& after = places[std::min(i + 1, places.size() - 1)];
        const double length = std::hypot(after.east - before.east, after.north - before.north);
        places[i].directionEast = (after.east - before.east) / length;
        places[i].directionNorth = (after.north - before.north) / length;
    }
}

/// The bends of a hilly town's roads between the known points; the boulevard after `straightFrom` has hardly
/// any.
void addBends(std::vector<Place>& places, double straightFrom)
{
    setDirections(places);
    for (std::size_t i = 0; i < places.size(); ++i) {
        const auto s = static_cast<double>(i);
        const double along = std::clamp((straightFrom - s) / 250, 0.1, 1.0) * std::min(1.0, s / 200);
        const double aside =
            along * (9 * std::sin(2 * std::numbers::pi * s / 330) + 3 * smoothNoise(73, s / 110));
        places[i].east += aside * places[i].directionNorth;
        places[i].north -= aside * places[i].directionEast;
    }
}

} // namespace

double Place::headingRad() const { return std::atan2(directionEast, directionNorth); }

Route::Route()
{
    std::vector<Place> corners;
    for (const GeoPoint& point : waypoints)
        corners.push_back({(point.longitude - waypoints[Start].longitude) * metresPerDegreeEast(),
                           (point.latitude - waypoints[Start].latitude) * metresPerDegree});
    std::vector<double> along;
    const std::vector<Place> line = metreSteps(corners, &along);
    m_places = smoothed(line, along[Dongsipjagak]);
    addBends(m_places, along[SajikPark]);
    m_places = metreSteps(m_places);
    setDirections(m_places);
    const std::size_t count = m_places.size();
    constexpr std::size_t reach = 6;
    m_curvature.assign(count, 0);
    for (std::size_t i = reach; i + reach < count; ++i) {
        const double turn = m_places[i + reach].headingRad() - m_places[i - reach].headingRad();
        m_curvature[i] = std::remainder(turn, 2 * std::numbers::pi) / (2.0 * reach);
    }

    m_tunnels = {{along[GeumhwaWest], along[GeumhwaEast]}, {along[SajikWest], along[SajikEast]}};
    m_trafficLight = along[GyeongbokgungStation] - 25;
    m_brakingPoint = along[Ramp] + 90;
}

double Route::length() const { return static_cast<double>(m_places.size() - 1); }

Place Route::at(double distance) const
{
    const double inside = std::clamp(distance, 0.0, length());
    const auto index = std::min(static_cast<std::size_t>(inside), m_places.size() - 2);
    const Place& a = m_places[index];
    const Place& b = m_places[index + 1];
    const double share = inside - static_cast<double>(index);
    const double beyond = distance - inside;
    const double directionEast = a.directionEast + share * (b.directionEast - a.directionEast);
    const double directionNorth = a.directionNorth + share * (b.directionNorth - a.directionNorth);
    return {a.east + share * (b.east - a.east) + beyond * directionEast,
            a.north + share * (b.north - a.north) + beyond * directionNorth, directionEast, directionNorth};
}

GeoPoint Route::geoPoint(double distance) const
{
    const Place place = at(distance);
    return {waypoints[Start].latitude + place.north / metresPerDegree,
            waypoints[Start].longitude + place.east / metresPerDegreeEast()};
}

double Route::curvature(double distance) const
{
    const auto index = static_cast<std::size_t>(std::clamp(distance, 0.0, length()));
    return m_curvature[index];
}

const Stretch* Route::tunnelAt(double distance) const
{
    const auto found =
        std::ranges::find_if(m_tunnels, [&](const Stretch& t) { return t.contains(distance); });
    return found == m_tunnels.end() ? nullptr : &*found;
}

} // namespace marvo::demo
