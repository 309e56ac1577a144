// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

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

    bool operator==(const Colour&) const = default;
};

/// From red, green and blue, 0 to 255 each; values outside are clamped.
Colour rgb(double red, double green, double blue);
/// From a (share 0) to b (share 1).
Colour mixed(Colour a, Colour b, double share);

struct Point
{
    double x = 0;
    double y = 0;
};

/// A picture in planes of luma and half-resolution colour, which is what a motion-JPEG frame is made of: a
/// drawn picture goes to the encoder without a conversion, and a flat area costs three memory fills.
///
/// Co-ordinates are pixels from the upper left corner; what lies outside is cut off.
class Canvas
{
public:
    /// Width and height from 1 to 8192.
    Canvas(int width, int height);

    int width() const { return m_width; }
    int height() const { return m_height; }

    void fill(Colour colour);
    /// One row from x0 to x1, both in pixels with a fraction; the ends are blended by what they cover.
    void fillSpan(int row, double x0, double x1, Colour colour);
    void fillRect(double x, double y, double width, double height, Colour colour);
    /// A convex polygon of at least three corners, in either direction.
    void fillPolygon(std::span<const Point> corners, Colour colour);
    /// The same, mixed into what is there: opacity 0 (nothing) to 1 (covers).
    void blendPolygon(std::span<const Point> corners, Colour colour, double opacity);
    /// Capital letters, digits and punctuation of the built-in 5 x 7 dot font, with a dark rim; scale is the
    /// size of one dot in pixels. Returns the x where the text ends.
    int drawText(int x, int y, int scale, std::string_view text, Colour colour);

    /// Rows of the planes; the luma plane has lumaStride() bytes a row, the colour planes half of it. The
    /// planes reach to the next multiple of 16 in both directions.
    std::uint8_t* luma(int row) { return m_luma.data() + static_cast<std::ptrdiff_t>(row) * m_stride; }
    std::uint8_t* chromaU(int row) { return m_u.data() + static_cast<std::ptrdiff_t>(row) * (m_stride / 2); }
    std::uint8_t* chromaV(int row) { return m_v.data() + static_cast<std::ptrdiff_t>(row) * (m_stride / 2); }
    const std::uint8_t* luma(int row) const { return const_cast<Canvas*>(this)->luma(row); }
    const std::uint8_t* chromaU(int row) const { return const_cast<Canvas*>(this)->chromaU(row); }
    const std::uint8_t* chromaV(int row) const { return const_cast<Canvas*>(this)->chromaV(row); }
    int lumaStride() const { return m_stride; }
    int paddedHeight() const { return m_paddedHeight; }

private:
    struct RowRange
    {
        int first = 0;
        int end = 0;
    };
    RowRange scan(std::span<const Point> corners);
    void blendSpan(int row, double x0, double x1, Colour colour, int opacity256);
    void drawGlyph(int x, int y, int scale, char character, Colour colour);

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
