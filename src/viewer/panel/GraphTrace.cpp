// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/panel/GraphTrace.h"

#include <QColor>
#include <QImage>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

namespace marvo {

namespace {

constexpr double plotStep = 0.1;   ///< points of width from one plot point to the next
constexpr double lineRadius = 0.5; ///< half the line's thickness in points
/// A line covers this many steps to either side of its middle.
constexpr int reach = static_cast<int>(lineRadius / plotStep);
constexpr double originInset = 1; ///< the traces start beside the grid's vertical line

struct Interval
{
    double low = 0;
    double high = 0;
};

/// The plot points' heights on one axis, in device pixels from the top, kept near the view.
std::vector<double> plotHeights(const GraphGeometry& geometry, std::span<const MRVGSensor> samples,
                                float MRVGSensor::*axis, double ratio, int imageHeight)
{
    const double margin = 2 * lineRadius * ratio + 1;
    const double plotPoints = geometry.area.width() / plotStep + 1;
    const double step = static_cast<double>(samples.size()) / plotPoints;
    std::vector<double> heights;
    heights.reserve(static_cast<std::size_t>(plotPoints) + 1);
    for (double j = 0; j < plotPoints; ++j) {
        const auto index = static_cast<std::size_t>(step * j);
        if (index >= samples.size())
            break;
        const double y = geometry.yOf(static_cast<double>(samples[index].*axis)) * ratio;
        heights.push_back(std::clamp(y, -margin, imageHeight + margin));
    }
    return heights;
}

/// What the thick line covers around each plot point, one step wide: the heights of all points within the
/// round pen's reach, each widened by the pen's own height at its distance. As the line joins its points, all
/// between them is covered as well.
std::vector<Interval> strokedIntervals(const std::vector<double>& heights, double ratio)
{
    std::array<double, reach + 1> halfChord; // of the pen, by distance in steps
    for (int d = 0; d <= reach; ++d)
        halfChord[d] =
            std::sqrt(std::max(lineRadius * lineRadius - d * plotStep * d * plotStep, 0.0)) * ratio;

    const int points = static_cast<int>(heights.size());
    std::vector<Interval> stroked(heights.size());
    for (int s = 0; s < points; ++s) {
        Interval cover{.low = heights[s], .high = heights[s]};
        const int last = std::min(s + reach, points - 1);
        for (int near = std::max(s - reach, 0); near <= last; ++near) {
            const double chord = halfChord[std::abs(near - s)];
            cover.low = std::min(cover.low, heights[near] - chord);
            cover.high = std::max(cover.high, heights[near] + chord);
        }
        stroked[s] = cover;
    }
    return stroked;
}

/// Sums up how much of each pixel of one column is covered, and paints it.
class ColumnPainter
{
public:
    ColumnPainter(QImage& image, QColor color)
        : m_image(image),
          m_red(color.red()),
          m_green(color.green()),
          m_blue(color.blue()),
          m_change(static_cast<std::size_t>(image.height()) + 2)
    {}

    /// Covers a strip of the column: its heights in device pixels, its width as a part of the column's.
    void cover(Interval heights, double width)
    {
        const double low = std::clamp<double>(heights.low, 0, m_image.height());
        const double high = std::clamp<double>(heights.high, 0, m_image.height());
        if (!(low < high))
            return;
        const auto first = static_cast<int>(low);
        const auto last = static_cast<int>(high);
        m_change[first] += (first + 1 - low) * width;
        m_change[first + 1] += (low - first) * width;
        m_change[last] -= (last + 1 - high) * width;
        m_change[last + 1] -= (high - last) * width;
        m_firstRow = std::min(m_firstRow, first);
        m_lastRow = std::max(m_lastRow, last);
    }

    void paint(int column)
    {
        double covered = 0;
        for (int row = m_firstRow; row <= m_lastRow; ++row) {
            covered += m_change[row];
            const int alpha = std::clamp(static_cast<int>(std::lround(covered * 255)), 0, 255);
            if (alpha > 0 && row < m_image.height() && column >= 0 && column < m_image.width())
                blend(column, row, alpha);
        }
        if (m_lastRow >= 0)
            std::fill(m_change.begin() + m_firstRow, m_change.begin() + m_lastRow + 2, 0.0);
        m_firstRow = m_image.height();
        m_lastRow = -1;
    }

private:
    void blend(int column, int row, int alpha)
    {
        auto& pixel = reinterpret_cast<QRgb*>(m_pixels + row * m_stride)[column];
        const auto mix = [alpha](int over, int under) {
            return (over * alpha + under * (255 - alpha) + 127) / 255;
        };
        pixel = qRgba(mix(m_red, qRed(pixel)), mix(m_green, qGreen(pixel)), mix(m_blue, qBlue(pixel)),
                      mix(255, qAlpha(pixel)));
    }

    QImage& m_image;
    uchar* m_pixels = m_image.bits();
    qsizetype m_stride = m_image.bytesPerLine();
    int m_red;
    int m_green;
    int m_blue;
    std::vector<double> m_change; ///< of the cover from one row to the next
    int m_firstRow = m_image.height();
    int m_lastRow = -1;
};

void drawAxis(QImage& image, const GraphGeometry& geometry, std::span<const MRVGSensor> samples,
              float MRVGSensor::*axis, QColor color)
{
    const double ratio = image.devicePixelRatio();
    const auto stroked = strokedIntervals(plotHeights(geometry, samples, axis, ratio, image.height()), ratio);
    ColumnPainter painter(image, color);
    const double stepWidth = plotStep * ratio;
    const double origin = (geometry.area.left() + originInset) * ratio;
    int column = static_cast<int>(origin);
    double left = origin;
    for (std::size_t s = 0; s < stroked.size(); ++s) {
        // The line ends at its first and last points: these are covered on one side only.
        const double beyond = s + 1 < stroked.size() ? 0.5 : 0;
        const double right = origin + (static_cast<double>(s) + beyond) * stepWidth;
        while (left < right) {
            const double stop = std::min<double>(right, column + 1);
            painter.cover(stroked[s], stop - left);
            left = stop;
            if (left >= column + 1)
                painter.paint(column++);
        }
    }
    painter.paint(column);
}

} // namespace

GraphGeometry::GraphGeometry(QSizeF viewSize)
    : area(20, 8, viewSize.width() - 40, viewSize.height() - 16),
      zeroY(area.top() + area.height() / 2),
      pointsPerG(area.height() / 4)
{}

void drawTraces(QImage& image, const GraphGeometry& geometry, std::span<const MRVGSensor> samples)
{
    if (samples.empty() || geometry.isEmpty())
        return;
    drawAxis(image, geometry, samples, &MRVGSensor::x, QColor(255, 0, 0));
    drawAxis(image, geometry, samples, &MRVGSensor::y, QColor(0, 255, 0));
    drawAxis(image, geometry, samples, &MRVGSensor::z, QColor(0, 0, 255));
}

} // namespace marvo
