// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/RoadView.h"

#include <array>
#include <cmath>
#include <numbers>

namespace marvo::demo {

RoadView::RoadView(Canvas& picture, const Route& route, const Camera& camera)
    : m_picture(picture),
      m_route(route),
      m_camera(camera),
      m_sign(camera.look == Look::Ahead ? 1 : -1),
      m_place(route.at(camera.along))
{
    m_bearing = m_place.headingRad() + (camera.look == Look::Ahead ? 0 : std::numbers::pi);
    m_place.east += camera.aside * m_place.directionNorth;
    m_place.north -= camera.aside * m_place.directionEast;
    if (const Stretch* tunnel = route.tunnelAt(camera.along)) {
        // The camera adapts to the dark within some metres, and to the light before the exit.
        const double depth = std::min(camera.along - tunnel->from, (tunnel->to - camera.along) * 0.7);
        const double adapted = std::clamp(depth / 22, 0.0, 1.0);
        m_outside += 0.6 * adapted;
        m_inside += 0.72 * adapted;
    }
}

Point RoadView::relative(const Spot& spot) const
{
    const Place place = m_route.at(spot.along);
    const double east = place.east + spot.aside * place.directionNorth - m_place.east;
    const double north = place.north - spot.aside * place.directionEast - m_place.north;
    const double sine = std::sin(m_bearing);
    const double cosine = std::cos(m_bearing);
    return {east * cosine - north * sine, east * sine + north * cosine};
}

Colour RoadView::lit(Colour colour, double depth, bool inTunnel) const
{
    if (inTunnel)
        return brightened(mixed(colour, rgb(196, 160, 104), 0.25), m_inside);
    const double hidden = 1 - std::exp(-std::max(0.0, depth - 10) / 320);
    return brightened(mixed(colour, haze, hidden), m_outside);
}

void RoadView::face(std::initializer_list<Spot> spots, Colour colour, Paint paint)
{
    std::array<Point, 8> corners;
    std::size_t count = 0;
    for (const Spot& spot : spots) {
        const Point place = relative(spot);
        if (place.y < 0.4 || count == corners.size())
            return;
        const double scale = m_camera.focalLength / place.y;
        corners[count++] = {m_picture.width() / 2.0 + place.x * scale,
                            m_camera.horizon + (cameraHeight - spot.height) * scale};
    }
    const Spot& first = *spots.begin();
    const std::span shape = std::span(corners).first(count);
    const bool isLamp = paint == Paint::Lamp;
    m_picture.fillPolygon(shape, isLamp ? colour : lit(colour, depth(first), isInTunnel(first.along)));
}

void RoadView::ball(const Spot& middle, double radius, Colour colour)
{
    const Point place = relative(middle);
    if (place.y < 0.4)
        return;
    const double scale = m_camera.focalLength / place.y;
    m_picture.fillEllipse({m_picture.width() / 2.0 + place.x * scale,
                           m_camera.horizon + (cameraHeight - middle.height) * scale},
                          radius * scale, radius * scale, lit(colour, place.y, false));
}

void RoadView::rect(const Spot& a, const Spot& b, Colour colour, Paint paint)
{
    if (a.height != b.height)
        face({a, {b.along, b.aside, a.height}, b, {a.along, a.aside, b.height}}, colour, paint);
    else
        face({a, {a.along, b.aside, a.height}, b, {b.along, a.aside, a.height}}, colour, paint);
}

} // namespace marvo::demo
