// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace marvo::demo {

/// A colour as JPEG holds it: luma and two colour differences, full range (ITU-T T.871).
struct Colour
{
    std::uint8_t y = 0;
    std::uint8_t u = 128;
    std::uint8_t v = 128;
};

/// From red, green and blue, 0 to 255 each; values outside are clamped.
constexpr Colour rgb(double red, double green, double blue)
{
    const auto byte = [](double value) {
        return static_cast<std::uint8_t>(std::clamp(value, 0.0, 255.0) + 0.5);
    };
    return {byte(0.299 * red + 0.587 * green + 0.114 * blue),
            byte(128 - 0.168736 * red - 0.331264 * green + 0.5 * blue),
            byte(128 + 0.5 * red - 0.418688 * green - 0.081312 * blue)};
}
/// From a (share 0) to b (share 1).
Colour mixed(Colour a, Colour b, double share);
/// The colour at a share of its brightness; above 1 it goes towards white.
Colour brightened(Colour colour, double brightness);

struct Point
{
    double x = 0;
    double y = 0;
};

/// A picture in planes of luma and half-resolution colour, the form of a motion-JPEG frame: the encoder takes
/// it without a conversion, and a flat area costs three memory fills. Co-ordinates are pixels from the upper
/// left corner; everything outside is cut off.
class Canvas
{
public:
    /// Width and height from 1 to 8192.
    Canvas(int width, int height);

    int width() const { return m_width; }
    int height() const { return m_height; }

    void fill(Colour colour);
    /// Pixels x0 to x1 of a row, both with a fraction: the ends are blended by their share.
    void fillSpan(int row, double x0, double x1, Colour colour);
    void fillPolygon(std::span<const Point> corners, Colour colour); ///< convex, at least three corners
    void fillEllipse(Point middle, double halfWidth, double halfHeight, Colour colour);
    /// Text in the built-in 5 x 7 dot font with a dark rim; scale is the size of a dot in pixels. The font
    /// has what the camera's display needs: digits, "N", "E", "/", ":", ".", "-" and "km/h".
    void drawText(int x, int y, int scale, std::string_view text, Colour colour);

    /// Rows of the planes; the luma plane has lumaStride() bytes a row, the colour planes half of it. The
    /// planes extend to the next multiple of 16 in both directions.
    std::uint8_t* luma(int row) { return m_luma.data() + static_cast<std::ptrdiff_t>(row) * m_stride; }
    std::uint8_t* chromaU(int row) { return m_u.data() + static_cast<std::ptrdiff_t>(row) * (m_stride / 2); }
    std::uint8_t* chromaV(int row) { return m_v.data() + static_cast<std::ptrdiff_t>(row) * (m_stride / 2); }
    const std::uint8_t* luma(int row) const { return const_cast<Canvas*>(this)->luma(row); }
    const std::uint8_t* chromaU(int row) const { return const_cast<Canvas*>(this)->chromaU(row); }
    const std::uint8_t* chromaV(int row) const { return const_cast<Canvas*>(this)->chromaV(row); }
    int lumaStride() const { return m_stride; }
    int paddedHeight() const { return m_paddedHeight; }

private:
    int m_width;
    int m_height;
    int m_stride;
    int m_paddedHeight;
    std::vector<std::uint8_t> m_luma;
    std::vector<std::uint8_t> m_u;
    std::vector<std::uint8_t> m_v;
    std::vector<double> m_left; ///< where the polygon being filled begins in each row
    std::vector<double> m_right;
};

} // namespace marvo::demo
