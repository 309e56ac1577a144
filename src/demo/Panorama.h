// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "demo/Canvas.h"

namespace marvo::demo {

/// The surroundings of the city: sky, clouds and the hills on the horizon, drawn once for all directions and
/// then only copied.
class Panorama
{
public:
    /// focalLength is that of the pictures it is for, in pixels; rows is how many rows of sky it holds.
    Panorama(double focalLength, int rows);

    /// Copies the sky above row `horizon` into the picture, looking towards a bearing (clockwise from north).
    /// Rows above what the panorama holds repeat its topmost one.
    void drawInto(Canvas& picture, double bearingRad, int horizon) const;

    static constexpr Colour haze() { return rgb(206, 214, 220); } ///< the colour that distance gives

private:
    Canvas m_strip;
};

} // namespace marvo::demo
