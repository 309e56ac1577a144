// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/RoadView.h"

#include "demo/Panorama.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace marvo::demo {

Colour brightened(Colour colour, double brightness)
{
    if (brightness >= 1)
        return mixed(colour, {250, 128, 128}, std::min(0.85, brightness - 1));
    return mixed({12, 128, 128}, colour, brightness);
}

RoadView::RoadView(Canvas& picture, const Route& route, const Camera& camera, const Light& light)
    : m_picture(picture),
      m_route(route),
      m_camera(camera),
      m_light(light),
      m_sign(camera.look == Look::Ahead ? 1 : -1),
      m_place(route.at(camera.along))
{
    m_bearing = m_place.headingRad() + (camera.look == Look::Ahead ? 0 : std::numbers::pi);
    m_sin = std::sin(m_bearing);
    m_cos = std::cos(m_bearing);
    m_place.east += camera.aside * m_place.directionNorth;
    m_place.north -= camera.aside * m_place.directionEast;
}

RoadView::Relative RoadView::relative(const Spot& spot) const
{
    const Place place = m_route.at(spot.along);
    const double east = place.east + spot.aside * place.directionNorth - m_place.east;
    const double north = place.north - spot.aside * place.directionEast - m_place.north;
    return {east * m_cos - north * m_sin, east * m_sin + north * m_cos};
}

double RoadView::depth(const Spot& spot) const { return relative(spot).away; }

std::optional<Point> RoadView::project(const Spot& spot) const
{
    const auto [right, away] = relative(spot);
    if (away < 0.4)
        return std::nullopt;
    const double scale = m_camera.focalLength / away;
    return Point{m_picture.width() / 2.0 + right * scale,
                 m_camera.horizon + (m_camera.height - spot.height) * scale};
}

Colour RoadView::lit(Colour colour, double depth, bool inTunnel) const
{
    if (inTunnel)
        return brightened(mixed(colour, rgb(196, 160, 104), 0.25), m_light.inside);
    const double hidden = 1 - std::exp(-std::max(0.0, depth - 10) / 320);
    return brightened(mixed(colour, Panorama::haze(), hidden), m_light.outside);
}

bool RoadView::corners(std::initializer_list<Spot> spots, std::array<Point, mostCorners>& out) const
{
    std::size_t count = 0;
    for (const Spot& spot : spots) {
        const auto point = project(spot);
        if (!point || count == out.size())
            return false;
        out[count++] = *point;
    }
    return count >= 3;
}

void RoadView::face(std::initializer_list<Spot> spots, Colour colour)
{
    std::array<Point, mostCorners> points;
    if (!corners(spots, points))
        return;
    const Spot& first = *spots.begin();
    m_picture.fillPolygon(std::span(points).first(spots.size()),
                          lit(colour, depth(first), isInTunnel(first.along)));
}

void RoadView::glow(std::initializer_list<Spot> spots, Colour colour)
{
    std::array<Point, mostCorners> points;
    if (corners(spots, points))
        m_picture.fillPolygon(std::span(points).first(spots.size()), colour);
}

void RoadView::shadow(std::initializer_list<Spot> spots, double opacity)
{
    std::array<Point, mostCorners> points;
    if (corners(spots, points))
        m_picture.blendPolygon(std::span(points).first(spots.size()), {10, 128, 128}, opacity);
}

} // namespace marvo::demo
