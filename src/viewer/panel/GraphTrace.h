// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "recording/SampleRecords.h"

#include <QRectF>
#include <QSizeF>

#include <span>

class QImage;

namespace marvo {

/// Where things lie in the G-sensor graph, in the view's points with y growing downward. The area spans -2 g
/// at its bottom to +2 g at its top.
struct GraphGeometry
{
    explicit GraphGeometry(QSizeF viewSize);

    bool isEmpty() const { return area.isEmpty(); }
    double xOf(double fraction) const { return area.left() + area.width() * fraction; }
    double yOf(double g) const { return zeroY - g * pointsPerG; }

    QRectF area;
    double zeroY = 0;
    double pointsPerG = 0;
};

/// Draws the traces of x (red), y (green) and z (blue), in this order, over what the image shows.
///
/// The image is the whole view in ARGB32_Premultiplied, its device pixel ratio set. Each trace has ten plot
/// points a point of width, each taking the sample at or before its fraction of the list, joined by lines one
/// point thick with round joins. Instead of stroking these tens of thousands of segments, the cover of each
/// pixel is summed up column by column, which looks the same and takes a fraction of the time. Values beyond
/// the view, however large, are cut off at its edges.
void drawTraces(QImage& image, const GraphGeometry& geometry, std::span<const MRVGSensor> samples);

} // namespace marvo
