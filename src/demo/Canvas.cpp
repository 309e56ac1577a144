// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/Canvas.h"

#include "demo/DotFont.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace marvo::demo {

namespace {

std::uint8_t toByte(double value) { return static_cast<std::uint8_t>(std::clamp(value, 0.0, 255.0) + 0.5); }

std::uint8_t blended(std::uint8_t below, std::uint8_t above, int opacity256)
{
    return static_cast<std::uint8_t>(below + (((above - below) * opacity256) >> 8));
}

int roundedUp(int value, int step) { return (value + step - 1) / step * step; }

} // namespace

Colour rgb(double red, double green, double blue)
{
    return {toByte(0.299 * red + 0.587 * green + 0.114 * blue),
            toByte(128 - 0.168736 * red - 0.331264 * green + 0.5 * blue),
            toByte(128 + 0.5 * red - 0.418688 * green - 0.081312 * blue)};
}

Colour mixed(Colour a, Colour b, double share)
{
    const int opacity = static_cast<int>(std::clamp(share, 0.0, 1.0) * 256);
    return {blended(a.y, b.y, opacity), blended(a.u, b.u, opacity), blended(a.v, b.v, opacity)};
}

Canvas::Canvas(int width, int height)
    : m_width(std::clamp(width, 1, 8192)),
      m_height(std::clamp(height, 1, 8192)),
      m_stride(roundedUp(m_width, 16)),
      m_paddedHeight(roundedUp(m_height, 16)),
      m_luma(static_cast<std::size_t>(m_stride) * m_paddedHeight),
      m_u(m_luma.size() / 4, 128),
      m_v(m_luma.size() / 4, 128),
      m_left(m_height),
      m_right(m_height)
{}

void Canvas::fill(Colour colour)
{
    std::ranges::fill(m_luma, colour.y);
    std::ranges::fill(m_u, colour.u);
    std::ranges::fill(m_v, colour.v);
}

void Canvas::fillSpan(int row, double x0, double x1, Colour colour)
{
    if (row < 0 || row >= m_height)
        return;
    x0 = std::max(x0, 0.0);
    x1 = std::min(x1, static_cast<double>(m_width));
    if (!(x1 > x0))
        return;

    std::uint8_t* const line = luma(row);
    int first = static_cast<int>(x0);
    const int last = static_cast<int>(x1); // the pixel that x1 lies in
    if (first == last) {
        line[first] = blended(line[first], colour.y, static_cast<int>((x1 - x0) * 256));
        return;
    }
    if (x0 > first) {
        line[first] = blended(line[first], colour.y, static_cast<int>((first + 1 - x0) * 256));
        ++first;
    }
    std::memset(line + first, colour.y, static_cast<std::size_t>(last - first));
    if (last < m_width)
        line[last] = blended(line[last], colour.y, static_cast<int>((x1 - last) * 256));
    if (row % 2 == 0) {
        const int chromaFirst = static_cast<int>(x0 + 1) / 2;
        const int chromaEnd = static_cast<int>(x1 + 1) / 2;
        if (chromaEnd > chromaFirst) {
            const auto count = static_cast<std::size_t>(chromaEnd - chromaFirst);
            std::memset(chromaU(row / 2) + chromaFirst, colour.u, count);
            std::memset(chromaV(row / 2) + chromaFirst, colour.v, count);
        }
    }
}

void Canvas::fillRect(double x, double y, double width, double height, Colour colour)
{
    const Point corners[] = {{x, y}, {x + width, y}, {x + width, y + height}, {x, y + height}};
    fillPolygon(corners, colour);
}

Canvas::RowRange Canvas::scan(std::span<const Point> corners)
{
    double top = std::numeric_limits<double>::max();
    double bottom = std::numeric_limits<double>::lowest();
    for (const Point& corner : corners) {
        if (!std::isfinite(corner.x) || !std::isfinite(corner.y))
            return {};
        top = std::min(top, corner.y);
        bottom = std::max(bottom, corner.y);
    }
    // A row belongs to the polygon when its middle does.
    const auto rowFrom = [this](double y) {
        return static_cast<int>(std::clamp(std::ceil(y - 0.5), 0.0, static_cast<double>(m_height)));
    };
    const RowRange rows{rowFrom(top), rowFrom(bottom)};
    for (int row = rows.first; row < rows.end; ++row) {
        m_left[row] = std::numeric_limits<double>::max();
        m_right[row] = std::numeric_limits<double>::lowest();
    }
    for (std::size_t i = 0; i < corners.size(); ++i) {
        Point a = corners[i];
        Point b = corners[(i + 1) % corners.size()];
        if (a.y > b.y)
            std::swap(a, b);
        const int first = rowFrom(a.y);
        const int end = rowFrom(b.y);
        if (first >= end)
            continue;
        const double slope = (b.x - a.x) / (b.y - a.y);
        double x = a.x + (first + 0.5 - a.y) * slope;
        for (int row = first; row < end; ++row, x += slope) {
            m_left[row] = std::min(m_left[row], x);
            m_right[row] = std::max(m_right[row], x);
        }
    }
    return rows;
}

void Canvas::fillPolygon(std::span<const Point> corners, Colour colour)
{
    const RowRange rows = scan(corners);
    for (int row = rows.first; row < rows.end; ++row)
        fillSpan(row, m_left[row], m_right[row], colour);
}

void Canvas::blendPolygon(std::span<const Point> corners, Colour colour, double opacity)
{
    const int opacity256 = static_cast<int>(std::clamp(opacity, 0.0, 1.0) * 256);
    const RowRange rows = scan(corners);
    for (int row = rows.first; row < rows.end; ++row)
        blendSpan(row, m_left[row], m_right[row], colour, opacity256);
}

void Canvas::blendSpan(int row, double x0, double x1, Colour colour, int opacity256)
{
    const int first = static_cast<int>(std::clamp(x0 + 0.5, 0.0, static_cast<double>(m_width)));
    const int end = static_cast<int>(std::clamp(x1 + 0.5, 0.0, static_cast<double>(m_width)));
    std::uint8_t* const line = luma(row);
    for (int x = first; x < end; ++x)
        line[x] = blended(line[x], colour.y, opacity256);
    if (row % 2 != 0)
        return;
    std::uint8_t* const u = chromaU(row / 2);
    std::uint8_t* const v = chromaV(row / 2);
    for (int x = (first + 1) / 2; x < (end + 1) / 2; ++x) {
        u[x] = blended(u[x], colour.u, opacity256);
        v[x] = blended(v[x], colour.v, opacity256);
    }
}

void Canvas::drawGlyph(int x, int y, int scale, char character, Colour colour)
{
    const auto& rows = dotGlyph(character);
    for (int row = 0; row < dotGlyphHeight; ++row) {
        for (int column = 0; column < dotGlyphWidth; ++column) {
            if ((rows[row] >> (dotGlyphWidth - 1 - column)) & 1)
                fillRect(x + column * scale, y + row * scale, scale, scale, colour);
        }
    }
}

int Canvas::drawText(int x, int y, int scale, std::string_view text, Colour colour)
{
    const int rim = std::max(1, scale / 2);
    const int advance = (dotGlyphWidth + 1) * scale;
    for (const char character : text) {
        for (const auto& [dx, dy] :
             {std::pair(-rim, 0), std::pair(rim, 0), std::pair(0, -rim), std::pair(0, rim)})
            drawGlyph(x + dx, y + dy, scale, character, {16, 128, 128});
        drawGlyph(x, y, scale, character, colour);
        x += advance;
    }
    return x;
}

} // namespace marvo::demo
