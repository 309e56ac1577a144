// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/Canvas.h"

#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <numbers>
#include <utility>

namespace marvo::demo {

namespace {

constexpr int glyphWidth = 5;
constexpr int glyphHeight = 7;

struct Glyph
{
    char character;
    std::uint8_t rows[glyphHeight]; ///< the leftmost dot in the highest of five bits
};

constexpr Glyph glyphs[] = {
    {'0', {0x0E, 0x11, 0x13, 0x15, 0x19, 0x11, 0x0E}}, {'1', {0x04, 0x0C, 0x04, 0x04, 0x04, 0x04, 0x0E}},
    {'2', {0x0E, 0x11, 0x01, 0x02, 0x04, 0x08, 0x1F}}, {'3', {0x1F, 0x02, 0x04, 0x02, 0x01, 0x11, 0x0E}},
    {'4', {0x02, 0x06, 0x0A, 0x12, 0x1F, 0x02, 0x02}}, {'5', {0x1F, 0x10, 0x1E, 0x01, 0x01, 0x11, 0x0E}},
    {'6', {0x06, 0x08, 0x10, 0x1E, 0x11, 0x11, 0x0E}}, {'7', {0x1F, 0x01, 0x02, 0x04, 0x08, 0x08, 0x08}},
    {'8', {0x0E, 0x11, 0x11, 0x0E, 0x11, 0x11, 0x0E}}, {'9', {0x0E, 0x11, 0x11, 0x0F, 0x01, 0x02, 0x0C}},
    {'N', {0x11, 0x11, 0x19, 0x15, 0x13, 0x11, 0x11}}, {'E', {0x1F, 0x10, 0x10, 0x1E, 0x10, 0x10, 0x1F}},
    {'k', {0x10, 0x10, 0x12, 0x14, 0x18, 0x14, 0x12}}, {'m', {0x00, 0x00, 0x1A, 0x15, 0x15, 0x15, 0x15}},
    {'h', {0x10, 0x10, 0x16, 0x19, 0x11, 0x11, 0x11}}, {'/', {0x00, 0x01, 0x02, 0x04, 0x08, 0x10, 0x00}},
    {':', {0x00, 0x04, 0x04, 0x00, 0x04, 0x04, 0x00}}, {'.', {0x00, 0x00, 0x00, 0x00, 0x00, 0x0C, 0x0C}},
    {'-', {0x00, 0x00, 0x00, 0x1F, 0x00, 0x00, 0x00}},
};

std::uint8_t blended(std::uint8_t below, std::uint8_t above, int opacity256)
{
    return static_cast<std::uint8_t>(below + (((above - below) * opacity256) >> 8));
}

int roundedUp(int value, int step) { return (value + step - 1) / step * step; }

} // namespace

Colour mixed(Colour a, Colour b, double share)
{
    const int opacity = static_cast<int>(std::clamp(share, 0.0, 1.0) * 256);
    return {blended(a.y, b.y, opacity), blended(a.u, b.u, opacity), blended(a.v, b.v, opacity)};
}

Colour brightened(Colour colour, double brightness)
{
    if (brightness >= 1)
        return mixed(colour, {250, 128, 128}, std::min(0.85, brightness - 1));
    return mixed({12, 128, 128}, colour, brightness);
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
    const auto blendPixel = [&](int x, double share) {
        line[x] = blended(line[x], colour.y, static_cast<int>(share * 256));
    };
    int first = static_cast<int>(x0);
    const int last = static_cast<int>(x1); // the pixel that x1 lies in
    if (first == last)
        return blendPixel(first, x1 - x0);
    if (x0 > first) {
        blendPixel(first, first + 1 - x0);
        ++first;
    }
    std::memset(line + first, colour.y, static_cast<std::size_t>(last - first));
    if (last < m_width)
        blendPixel(last, x1 - last);
    const int chromaFirst = static_cast<int>(x0 + 1) / 2;
    const int chromaEnd = static_cast<int>(x1 + 1) / 2;
    if (row % 2 == 0 && chromaEnd > chromaFirst) {
        const auto count = static_cast<std::size_t>(chromaEnd - chromaFirst);
        std::memset(chromaU(row / 2) + chromaFirst, colour.u, count);
        std::memset(chromaV(row / 2) + chromaFirst, colour.v, count);
    }
}

void Canvas::fillPolygon(std::span<const Point> corners, Colour colour)
{
    // A row belongs to the polygon when its middle does.
    const auto rowFrom = [this](double y) {
        return static_cast<int>(std::clamp(std::ceil(y - 0.5), 0.0, static_cast<double>(m_height)));
    };
    int top = m_height;
    int bottom = 0;
    for (const Point& corner : corners) {
        if (!std::isfinite(corner.x) || !std::isfinite(corner.y))
            return;
        top = std::min(top, rowFrom(corner.y));
        bottom = std::max(bottom, rowFrom(corner.y));
    }
    for (int row = top; row < bottom; ++row) {
        m_left[row] = std::numeric_limits<double>::max();
        m_right[row] = std::numeric_limits<double>::lowest();
    }
    for (std::size_t i = 0; i < corners.size(); ++i) {
        Point a = corners[i];
        Point b = corners[(i + 1) % corners.size()];
        if (a.y > b.y)
            std::swap(a, b);
        const double slope = a.y < b.y ? (b.x - a.x) / (b.y - a.y) : 0;
        for (int row = rowFrom(a.y); row < rowFrom(b.y); ++row) {
            const double x = a.x + (row + 0.5 - a.y) * slope;
            m_left[row] = std::min(m_left[row], x);
            m_right[row] = std::max(m_right[row], x);
        }
    }
    for (int row = top; row < bottom; ++row)
        fillSpan(row, m_left[row], m_right[row], colour);
}

void Canvas::fillEllipse(Point middle, double halfWidth, double halfHeight, Colour colour)
{
    std::array<Point, 40> rim;
    for (std::size_t i = 0; i < rim.size(); ++i) {
        const double angle = std::numbers::pi * 2 * static_cast<double>(i) / rim.size();
        rim[i] = {middle.x + halfWidth * std::cos(angle), middle.y + halfHeight * std::sin(angle)};
    }
    fillPolygon(rim, colour);
}

void Canvas::drawText(int x, int y, int scale, std::string_view text, Colour colour)
{
    const int rim = std::max(1, scale / 2);
    const auto drawGlyph = [&](const Glyph& glyph, int left, int top, Colour ink) {
        for (int dot = 0; dot < glyphWidth * glyphHeight; ++dot) {
            if (((glyph.rows[dot / glyphWidth] >> (glyphWidth - 1 - dot % glyphWidth)) & 1) == 0)
                continue;
            const int dotLeft = left + dot % glyphWidth * scale;
            for (int row = 0; row < scale; ++row)
                fillSpan(top + dot / glyphWidth * scale + row, dotLeft, dotLeft + scale, ink);
        }
    };
    for (const char character : text) {
        const auto* glyph = std::ranges::find(glyphs, character, &Glyph::character);
        if (glyph != std::end(glyphs)) {
            for (const auto& [dx, dy] :
                 {std::pair(-rim, 0), std::pair(rim, 0), std::pair(0, -rim), std::pair(0, rim)})
                drawGlyph(*glyph, x + dx, y + dy, {16, 128, 128});
            drawGlyph(*glyph, x, y, colour);
        }
        x += (glyphWidth + 1) * scale;
    }
}

} // namespace marvo::demo
