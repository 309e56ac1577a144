// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "demo/Canvas.h"

namespace marvo::demo {

/// What stands still around the city: sky, clouds and the hills on the horizon, drawn once for all directions
/// and then only copied.
class Panorama
{
public:
    /// focalLength is that of the pictures it is for, in pixels; rows is how many rows of sky it holds.
    Panorama(double focalLength, int rows);

    /// Copies the sky above row `horizon` into the picture, looking towards a bearing (clockwise from north).
    /// Rows above what the panorama holds repeat its topmost one.
    void drawInto(Canvas& picture, double bearingRad, int horizon) const;

    static Colour haze(); ///< the colour that distance gives

private:
    void drawSky(double focalLength);
    void drawHills(double focalLength);

    Canvas m_strip; ///< twice the colour resolution is not needed: the same planes as a picture
};

} // namespace marvo::demo
