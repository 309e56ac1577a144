// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/Panorama.h"

#include "demo/Noise.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>

namespace marvo::demo {

namespace {

constexpr double degree = std::numbers::pi / 180;

/// A mountain as a bell over a bearing. Those around the old town, by their bearing from Sajik-ro.
struct Mountain
{
    double bearingDegrees;
    double heightDegrees;
    double widthDegrees;
};
constexpr Mountain nearMountains[] = {
    {318, 7.5, 15}, {250, 5.0, 22}, {5, 8.0, 12}, {345, 3.0, 25}, {152, 4.8, 14}};
constexpr Mountain farMountains[] = {
    {15, 5.5, 30}, {340, 4.0, 30}, {195, 3.5, 40}, {90, 2.2, 40}, {280, 2.5, 30}};
constexpr double towerBearing = 152; // the tower on Namsan

double ridge(std::span<const Mountain> mountains, double bearingDegrees, std::uint64_t seed)
{
    double height = 0.5;
    for (const Mountain& mountain : mountains) {
        const double away =
            std::remainder(bearingDegrees - mountain.bearingDegrees, 360.0) / mountain.widthDegrees;
        height += mountain.heightDegrees * std::exp(-away * away);
    }
    return height * (1 + 0.10 * smoothNoise(seed, bearingDegrees / 3.6) +
                     0.04 * smoothNoise(seed + 1, bearingDegrees));
}

double skyline(double bearingDegrees)
{
    // Houses: a step every degree or so.
    const auto house = static_cast<std::int64_t>(std::floor(bearingDegrees * 1.25));
    return 0.6 + 1.5 * chance(31, house) + (chance(32, house) > 0.9 ? 1.6 : 0);
}

/// Clouds from 0 (clear) to 1, by bearing and height, both in degrees; the bearing closes after 360.
double clouds(double bearingDegrees, double heightDegrees)
{
    const auto layer = [&](std::uint64_t seed, double cellsAround, double cellDegrees) {
        const double x = bearingDegrees / 360 * cellsAround;
        const double y = heightDegrees / cellDegrees;
        const auto row = static_cast<std::uint64_t>(std::max(0.0, std::floor(y)));
        const auto noiseInRow = [&](std::uint64_t r) {
            const auto cell = static_cast<std::int64_t>(std::floor(x));
            const double share = x - std::floor(x);
            const auto around = static_cast<std::int64_t>(cellsAround);
            return std::lerp(chance(seed + r, cell % around), chance(seed + r, (cell + 1) % around),
                             share * share * (3 - 2 * share));
        };
        const double share = y - std::floor(y);
        return std::lerp(noiseInRow(row), noiseInRow(row + 1), share * share * (3 - 2 * share));
    };
    const double density =
        0.55 * layer(1000, 24, 6) + 0.30 * layer(2000, 60, 2.6) + 0.15 * layer(3000, 150, 1.1);
    return std::clamp((density - 0.50) * 3.2, 0.0, 1.0);
}

} // namespace

Colour Panorama::haze() { return rgb(206, 214, 220); }

Panorama::Panorama(double focalLength, int rows)
    : m_strip(static_cast<int>(2 * std::numbers::pi * focalLength), rows)
{
    drawSky(focalLength);
    drawHills(focalLength);
}

void Panorama::drawSky(double focalLength)
{
    constexpr int cell = 8; // clouds are soft: one sample a cell of pixels, mixed in between
    const Colour zenith = rgb(92, 146, 206);
    const int columns = m_strip.width() / cell + 2;
    std::vector<double> above(static_cast<std::size_t>(columns));
    std::vector<double> below(above.size());
    const auto sampleRow = [&](int row, std::vector<double>& out) {
        const double height = (m_strip.height() - row) / focalLength / degree;
        for (int column = 0; column < columns; ++column)
            out[column] =
                clouds(std::fmod(column * cell / focalLength / degree, 360.0), std::max(0.0, height));
    };
    for (int row = 0; row < m_strip.height(); ++row) {
        if (row % cell == 0) {
            sampleRow(row, above);
            sampleRow(row + cell, below);
        }
        const double down = static_cast<double>(row % cell) / cell;
        const double height = (m_strip.height() - row) / focalLength / degree;
        const Colour clear = mixed(haze(), zenith, std::min(1.0, height / 26));
        const Colour white = mixed(haze(), rgb(250, 250, 250), std::min(1.0, height / 12));
        for (int x = 0; x < m_strip.width(); ++x) {
            const int column = x / cell;
            const double along = static_cast<double>(x % cell) / cell;
            const double cloud = std::lerp(std::lerp(above[column], above[column + 1], along),
                                           std::lerp(below[column], below[column + 1], along), down);
            const Colour colour = mixed(clear, white, 0.8 * cloud);
            m_strip.luma(row)[x] = colour.y;
            if (row % 2 == 0 && x % 2 == 0) {
                m_strip.chromaU(row / 2)[x / 2] = colour.u;
                m_strip.chromaV(row / 2)[x / 2] = colour.v;
            }
        }
    }
}

void Panorama::drawHills(double focalLength)
{
    const auto column = [&](int x, double heightDegrees, Colour colour) {
        const double top = m_strip.height() - heightDegrees * degree * focalLength;
        for (int row = std::max(0, static_cast<int>(top)); row < m_strip.height(); ++row) {
            m_strip.luma(row)[x] = colour.y;
            if (row % 2 == 0 && x % 2 == 0) {
                m_strip.chromaU(row / 2)[x / 2] = colour.u;
                m_strip.chromaV(row / 2)[x / 2] = colour.v;
            }
        }
    };
    const Colour farGreen = mixed(haze(), rgb(88, 116, 122), 0.45);
    const Colour nearGreen = mixed(haze(), rgb(64, 96, 72), 0.72);
    const Colour houses = mixed(haze(), rgb(150, 150, 152), 0.6);
    for (int x = 0; x < m_strip.width(); ++x) {
        const double bearing = x / focalLength / degree;
        column(x, ridge(farMountains, bearing, 41), farGreen);
        const double away = std::abs(std::remainder(bearing - towerBearing, 360.0));
        if (away < 0.16)
            column(x, ridge(nearMountains, bearing, 51) + (away < 0.05 ? 3.4 : 2.2), houses);
        column(x, ridge(nearMountains, bearing, 51), nearGreen);
        column(x, skyline(bearing), houses);
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
