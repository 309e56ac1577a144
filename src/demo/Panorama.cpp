// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/Panorama.h"

#include "demo/Noise.h"

#include <array>
#include <cmath>
#include <cstring>
#include <numbers>

namespace marvo::demo {

namespace {

constexpr double degree = std::numbers::pi / 180;

/// A mountain as a bell over a bearing, by its bearing from Sajik-ro; degrees.
struct Mountain
{
    double bearing;
    double height;
    double width;
};
constexpr std::array mountains{Mountain{318, 7.5, 15}, Mountain{250, 5.0, 22}, Mountain{5, 8.0, 12},
                               Mountain{345, 3.0, 25}, Mountain{152, 4.8, 14}, Mountain{90, 2.2, 40}};

double ridge(double bearing)
{
    double height = 0.5;
    for (const Mountain& mountain : mountains) {
        const double away = std::remainder(bearing - mountain.bearing, 360.0) / mountain.width;
        height += mountain.height * std::exp(-away * away);
    }
    return height * (1 + 0.10 * smoothNoise(51, bearing / 3.6) + 0.04 * smoothNoise(52, bearing));
}

/// Clouds from 0 (clear) to 1, by bearing and height in degrees; the bearing closes after 360.
double clouds(double bearing, double height)
{
    const auto layer = [&](std::uint64_t seed, int cellsAround, double cellHeight) {
        const double x = bearing / 360 * cellsAround;
        const double y = height / cellHeight;
        const auto smooth = [](double share) { return share * share * (3 - 2 * share); };
        const auto noiseInRow = [&](std::uint64_t row) {
            const auto cell = static_cast<std::int64_t>(x);
            return std::lerp(chance(row, cell % cellsAround), chance(row, (cell + 1) % cellsAround),
                             smooth(x - std::floor(x)));
        };
        const std::uint64_t row = seed + static_cast<std::uint64_t>(y);
        return std::lerp(noiseInRow(row), noiseInRow(row + 1), smooth(y - std::floor(y)));
    };
    const double density =
        0.55 * layer(1000, 24, 6) + 0.30 * layer(2000, 60, 2.6) + 0.15 * layer(3000, 150, 1.1);
    return std::clamp((density - 0.50) * 3.2, 0.0, 1.0);
}

Colour skyAt(double bearing, double height)
{
    const Colour clear = mixed(Panorama::haze(), rgb(92, 146, 206), std::min(1.0, height / 26));
    const Colour white = mixed(Panorama::haze(), rgb(250, 250, 250), std::min(1.0, height / 12));
    return mixed(clear, white, 0.8 * clouds(bearing, height));
}

} // namespace

Panorama::Panorama(double focalLength, int rows)
    : m_strip(static_cast<int>(2 * std::numbers::pi * focalLength), rows)
{
    const Colour hills = mixed(haze(), rgb(64, 96, 72), 0.72);
    const Colour houses = mixed(haze(), rgb(150, 150, 152), 0.6);
    for (int x = 0; x < m_strip.width(); x += 2) {
        const double bearing = x / focalLength / degree;
        const double hill = ridge(bearing);
        const auto house = static_cast<std::int64_t>(std::floor(bearing * 1.25));
        const double roof = 0.6 + 1.5 * chance(31, house) + (chance(32, house) > 0.9 ? 1.6 : 0);
        for (int row = 0; row < m_strip.height(); row += 2) {
            const double height = (m_strip.height() - row) / focalLength / degree;
            const Colour colour = height <= roof   ? houses
                                  : height <= hill ? hills
                                                   : skyAt(std::fmod(bearing, 360.0), height);
            for (int pixel = 0; pixel < 4; ++pixel)
                m_strip.luma(row + pixel / 2)[x + pixel % 2] = colour.y; // the planes are padded
            m_strip.chromaU(row / 2)[x / 2] = colour.u;
            m_strip.chromaV(row / 2)[x / 2] = colour.v;
        }
    }
}

void Panorama::drawInto(Canvas& picture, double bearingRad, int horizon) const
{
    const int around = m_strip.width() / 2 * 2;
    const double turns = bearingRad / (2 * std::numbers::pi);
    const int middle = static_cast<int>((turns - std::floor(turns)) * around);
    const int start = (((middle - picture.width() / 2) % around + around) % around) / 2 * 2;
    const auto copyRow = [](std::uint8_t* to, const std::uint8_t* from, int begin, int length, int width) {
        for (int done = 0; done < width;) {
            const int count = std::min(width - done, length - begin);
            std::memcpy(to + done, from + begin, static_cast<std::size_t>(count));
            done += count;
            begin = 0;
        }
    };
    horizon = std::clamp(horizon, 0, picture.height());
    for (int row = 0; row < horizon; ++row) {
        const int from = std::max(0, m_strip.height() - horizon + row);
        copyRow(picture.luma(row), m_strip.luma(from), start, around, picture.width());
        if (row % 2 != 0)
            continue;
        const int half = (picture.width() + 1) / 2;
        copyRow(picture.chromaU(row / 2), m_strip.chromaU(from / 2), start / 2, around / 2, half);
        copyRow(picture.chromaV(row / 2), m_strip.chromaV(from / 2), start / 2, around / 2, half);
    }
}

} // namespace marvo::demo
