// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "demo/Canvas.h"
#include "demo/Route.h"

#include <array>
#include <initializer_list>
#include <optional>

namespace marvo::demo {

enum class Look { Ahead, Back };

/// A spot in the world, by the road: metres along the route, metres to the right of our lane's middle, metres
/// above the ground.
struct Spot
{
    double along = 0;
    double aside = 0;
    double height = 0;
};

/// What a camera in the car sees of the road: the pinhole projection from spots by the road to pixels, and
/// the colours that distance and light make of things.
class RoadView
{
public:
    struct Camera
    {
        double along = 0;       ///< metres along the route
        double aside = 0;       ///< metres to the right of our lane's middle
        double height = 1.35;   ///< metres above the ground
        double focalLength = 0; ///< pixels
        double horizon = 0;     ///< row of the horizon
        Look look = Look::Ahead;
    };
    struct Light
    {
        double outside =
            1;             ///< how bright the open air looks; above 1 it is bleached, as from within a tunnel
        double inside = 1; ///< how bright tunnels look
    };

    static constexpr double nearest = 1.5; ///< metres before the camera from which on things are seen

    RoadView(Canvas& picture, const Route& route, const Camera& camera, const Light& light);

    Canvas& picture() { return m_picture; }
    const Camera& camera() const { return m_camera; }
    double bearing() const { return m_bearing; } ///< radians clockwise from north

    /// Metres along the route for a distance from the camera in the direction it looks.
    double alongAt(double ahead) const { return m_camera.along + m_sign * ahead; }
    /// The reverse: how far ahead of the camera something lies, negative behind it.
    double aheadOf(double along) const { return m_sign * (along - m_camera.along); }

    /// Distance from the picture's plane in metres.
    double depth(const Spot& spot) const;
    /// The pixel of a spot; none when it lies too near to the camera's plane or behind it.
    std::optional<Point> project(const Spot& spot) const;

    /// A flat face; left out when a corner cannot be seen. The colour is what it has in plain daylight.
    void face(std::initializer_list<Spot> corners, Colour colour);
    /// The same in the colour given, whatever light and distance make of it: lamps.
    void glow(std::initializer_list<Spot> corners, Colour colour);
    void shadow(std::initializer_list<Spot> corners, double opacity);

    Colour lit(Colour colour, double depth, bool inTunnel) const;
    bool isInTunnel(double along) const { return m_route.tunnelAt(along) != nullptr; }

private:
    static constexpr std::size_t mostCorners = 16;
    struct Relative
    {
        double right = 0; ///< metres to the right of the camera
        double away = 0;  ///< metres before it
    };
    Relative relative(const Spot& spot) const;
    bool corners(std::initializer_list<Spot> spots, std::array<Point, mostCorners>& out) const;

    Canvas& m_picture;
    const Route& m_route;
    Camera m_camera;
    Light m_light;
    double m_sign;
    double m_bearing;
    Place m_place;
    double m_sin = 0;
    double m_cos = 0;
};

/// The colour at a share of its brightness; above 1 it goes towards white.
Colour brightened(Colour colour, double brightness);

} // namespace marvo::demo
