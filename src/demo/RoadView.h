// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "demo/Canvas.h"
#include "demo/Route.h"

#include <initializer_list>

namespace marvo::demo {

inline constexpr Colour haze = rgb(206, 214, 220); ///< the colour that distance gives

enum class Look { Ahead, Back };

/// A spot by the road: metres along the route, metres to the right of our lane's middle, metres above the
/// ground.
struct Spot
{
    double along = 0;
    double aside = 0;
    double height = 0;
};

/// A camera's view of the road: the pinhole projection from spots by the road to pixels, and the effect of
/// distance and light on colours.
class RoadView
{
public:
    struct Camera
    {
        double along = 0;       ///< metres along the route
        double aside = 0;       ///< metres to the right of our lane's middle
        double focalLength = 0; ///< pixels
        double horizon = 0;     ///< row of the horizon
        Look look = Look::Ahead;
    };
    /// Distance and tunnels change Daylight, but not Lamp.
    enum class Paint { Daylight, Lamp };

    static constexpr double nearest = 1.5; ///< metres before the camera from which on things are seen
    static constexpr double cameraHeight = 1.35;

    RoadView(Canvas& picture, const Route& route, const Camera& camera);

    const Camera& camera() const { return m_camera; }
    double bearing() const { return m_bearing; } ///< radians clockwise from north

    /// Metres along the route for a distance from the camera in the direction it looks.
    double alongAt(double ahead) const { return m_camera.along + m_sign * ahead; }
    /// The reverse: how far ahead of the camera something lies, negative behind it.
    double aheadOf(double along) const { return m_sign * (along - m_camera.along); }
    bool isInTunnel(double along) const { return m_route.tunnelAt(along) != nullptr; }

    /// Distance of a spot from the picture's plane in metres.
    double depth(const Spot& spot) const { return relative(spot).y; }
    /// A flat convex face; left out when a corner cannot be seen.
    void face(std::initializer_list<Spot> corners, Colour colour, Paint paint = Paint::Daylight);
    /// The rectangle between two opposite corners, which share one of the three co-ordinates.
    void rect(const Spot& a, const Spot& b, Colour colour, Paint paint = Paint::Daylight);
    /// A round thing of one colour, by its radius in metres.
    void ball(const Spot& middle, double radius, Colour colour);
    /// A colour in daylight at a distance, or in a tunnel.
    Colour lit(Colour colour, double depth, bool inTunnel) const;

private:
    Point relative(const Spot& spot) const; ///< metres to the right of the camera and before it

    Canvas& m_picture;
    const Route& m_route;
    Camera m_camera;
    double m_sign;
    double m_bearing;
    double m_outside = 1; ///< brightness of the open air; bleached from within a tunnel
    double m_inside = 0.28;
    Place m_place;
};

} // namespace marvo::demo
