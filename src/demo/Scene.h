// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "demo/Canvas.h"
#include "demo/Drive.h"
#include "demo/RoadView.h"

#include <string_view>

namespace marvo::demo {

/// Draws what the front or the rear camera sees at a moment of the drive. Several threads may draw with one
/// scene at once, each into a picture of its own.
class Scene
{
public:
    /// For pictures of one size. The drive must outlive the scene.
    Scene(const Drive& drive, Look look, int width, int height);

    /// The whole picture at a moment, in seconds since the drive began; after the drive's end it is that of
    /// the parked car. The stamp is the camera's text in the lower left corner.
    void draw(Canvas& picture, double seconds, std::string_view stamp) const;

private:
    void drawWorld(RoadView& view, double seconds) const;
    void drawOwnCar(Canvas& picture) const;

    const Drive& m_drive;
    Look m_look;
    int m_width;
    int m_height;
    double m_focalLength;
};

} // namespace marvo::demo
