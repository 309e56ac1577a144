// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/Noise.h"
#include "demo/Roadside.h"

#include <algorithm>
#include <cmath>

namespace marvo::demo {

namespace {

const Colour asphalt = rgb(92, 94, 97);
const Colour wornAsphalt = rgb(84, 86, 89);
const Colour patchedAsphalt = rgb(72, 74, 78);
const Colour whitePaint = rgb(226, 226, 222);
const Colour yellowPaint = rgb(222, 172, 52);
const Colour blueLine = rgb(62, 104, 182);

/// From where we stand at the red light, behind another car, to the line.
constexpr double stopLineAhead = 13;

/// A strip of ground between two places along and two across.
void strip(RoadView& view, double from, double to, double left, double right, Colour colour,
           double height = 0)
{
    view.face({{from, left, height}, {from, right, height}, {to, right, height}, {to, left, height}}, colour);
}

/// Calls paint(begin, end) for each mark of a pattern that lies within a piece of the way.
template <typename Paint>
void repeated(double from, double to, double period, double length, Paint paint)
{
    const double low = std::min(from, to);
    const double high = std::max(from, to);
    for (auto i = static_cast<std::int64_t>(std::floor(low / period)); static_cast<double>(i) * period < high;
         ++i) {
        const double begin = std::max(low, static_cast<double>(i) * period);
        const double end = std::min(high, static_cast<double>(i) * period + length);
        if (end > begin)
            paint(begin, end, i);
    }
}

void drawLaneMarks(RoadView& view, double from, double to, bool tunnel)
{
    const double near = view.aheadOf(from);
    if (near > 170)
        return;
    // Far away a line is at least as wide as it takes to be seen.
    const double half = std::max(0.07, near * 0.0011);
    for (const double line : {-0.5 * laneWidth, 0.5 * laneWidth}) {
        if (tunnel) {
            strip(view, from, to, line - half, line + half, whitePaint);
            continue;
        }
        repeated(from, to, 8, 3, [&](double begin, double end, std::int64_t) {
            strip(view, begin, end, line - half, line + half, whitePaint);
        });
    }
    const double edge = 1.5 * laneWidth + 0.1;
    strip(view, from, to, edge - half, edge + half, whitePaint);
    for (const double line : {medianAside - 0.16, medianAside + 0.16})
        strip(view, from, to, line - half, line + half, yellowPaint);
    if (!tunnel) {
        strip(view, from, to, -laneWidth * 0.5 - laneWidth + 0.9, -laneWidth * 1.5 + 0.9 + 2 * half,
              blueLine);
        repeated(from, to, 8, 3, [&](double begin, double end, std::int64_t) {
            const double line = medianAside - 1.2 * laneWidth;
            strip(view, begin, end, line - half, line + half, whitePaint);
        });
    }
}

void drawCrossing(RoadView& view, double from, double to, double stopLine)
{
    const double low = std::max(std::min(from, to), stopLine + 3.0);
    const double high = std::min(std::max(from, to), stopLine + 7.5);
    if (high > low) {
        for (double bar = leftKerb + 0.4; bar < rightKerb - 0.5; bar += 1.0)
            strip(view, low, high, bar, bar + 0.5, whitePaint);
    }
    const double lineLow = std::max(std::min(from, to), stopLine);
    const double lineHigh = std::min(std::max(from, to), stopLine + 0.5);
    if (lineHigh > lineLow)
        strip(view, lineLow, lineHigh, medianAside + 0.3, rightKerb - 0.5, whitePaint);
}

} // namespace

void drawRoad(RoadView& view, const Drive& drive, double from, double to)
{
    const bool tunnel = view.isInTunnel(from);
    const double near = view.aheadOf(from);
    const double left = tunnel ? medianAside - 0.8 : leftKerb;
    strip(view, from, to, left, rightKerb, asphalt);
    if (near < 90) {
        // Wheels polish the lanes, and pipes have been laid below them.
        for (const double lane : {-laneWidth, 0.0, laneWidth}) {
            for (const double wheel : {lane - 0.78, lane + 0.78})
                strip(view, from, to, wheel - 0.28, wheel + 0.28, wornAsphalt);
        }
        repeated(from, to, 19, 19, [&](double begin, double end, std::int64_t i) {
            if (chance(61, i) > 0.45)
                return;
            const double aside = std::floor(chance(62, i) * 3 - 1) * laneWidth + 1.2 * chance(63, i) - 1;
            const double start = static_cast<double>(i) * 19 + 8 * chance(64, i);
            const double low = std::max(begin, start);
            const double high = std::min(end, start + 1.5 + 7 * chance(65, i));
            if (high > low)
                strip(view, low, high, aside, aside + 0.5 + chance(66, i), patchedAsphalt);
        });
    }
    drawLaneMarks(view, from, to, tunnel);
    if (tunnel)
        return;
    drawCrossing(view, from, to, drive.route().trafficLight() + stopLineAhead);
    drawCrossing(view, from, to, 30);

    const Colour kerb = rgb(172, 170, 164);
    const Colour pavement = rgb(166, 158, 148);
    const Colour ground = rgb(142, 146, 128);
    strip(view, from, to, rightKerb, rightKerb + 0.3, kerb);
    strip(view, from, to, rightKerb + 0.3, rightKerb + pavementWidth, pavement);
    strip(view, from, to, rightKerb + pavementWidth, rightKerb + pavementWidth + 14, ground);
    strip(view, from, to, leftKerb - 0.3, leftKerb, kerb);
    strip(view, from, to, leftKerb - pavementWidth, leftKerb - 0.3, pavement);
    strip(view, from, to, leftKerb - pavementWidth - 14, leftKerb - pavementWidth, ground);
}

void drawTrafficLight(RoadView& view, double along, bool green)
{
    const Colour steel = rgb(120, 126, 130);
    const double pole = rightKerb + 1;
    const double arm = 5.6;
    view.face({{along, pole - 0.1, 0},
               {along, pole + 0.1, 0},
               {along, pole + 0.08, arm + 0.3},
               {along, pole - 0.08, arm + 0.3}},
              steel);
    view.face({{along, -0.6, arm}, {along, pole, arm}, {along, pole, arm + 0.14}, {along, -0.6, arm + 0.14}},
              steel);
    view.face({{along, -0.8, arm - 0.3},
               {along, 1.0, arm - 0.3},
               {along, 1.0, arm + 0.35},
               {along, -0.8, arm + 0.35}},
              rgb(34, 36, 38));
    if (view.camera().look == Look::Back)
        return;
    const auto lamp = [&](double aside, Colour colour) {
        view.glow({{along, aside - 0.12, arm - 0.2},
                   {along, aside + 0.12, arm - 0.2},
                   {along, aside + 0.22, arm},
                   {along, aside + 0.12, arm + 0.22},
                   {along, aside - 0.12, arm + 0.22},
                   {along, aside - 0.22, arm}},
                  colour);
    };
    lamp(-0.5, green ? rgb(60, 24, 24) : rgb(255, 58, 44));
    lamp(0.1, rgb(58, 48, 22));
    lamp(0.7, green ? rgb(70, 250, 170) : rgb(22, 56, 44));
}

// The tube of a tunnel across: walls, slanted shoulders, ceiling.
void drawTunnel(RoadView& view, const Stretch& tunnel, double from, double to)
{
    constexpr double left = medianAside - 0.8;
    constexpr double right = rightKerb + 0.5;
    constexpr double wall = 4.0;
    constexpr double ceiling = 6.1;
    constexpr double shoulder = 2.0;
    const double beyond = to + (to - from) * 0.06; // no gaps between pieces
    const auto side = [&](double a0, double h0, double a1, double h1, Colour colour) {
        view.face({{from, a0, h0}, {from, a1, h1}, {beyond, a1, h1}, {beyond, a0, h0}}, colour);
    };
    const Colour tiles = rgb(188, 184, 168);
    const Colour concrete = rgb(124, 120, 110);
    side(left, 0, left, wall, tiles);
    side(left, wall, left + shoulder, ceiling, concrete);
    side(left + shoulder, ceiling, right - shoulder, ceiling, rgb(96, 92, 84));
    side(right - shoulder, ceiling, right, wall, concrete);
    side(right, wall, right, 0, tiles);
    side(left, 0, left, 0.7, rgb(96, 96, 92));
    side(right, 0.7, right, 0, rgb(96, 96, 92));
    side(right - 1.1, 0.25, right, 0.25, rgb(120, 118, 112));
    side(left, 1.25, left, 1.4, rgb(206, 120, 48));
    side(right, 1.4, right, 1.25, rgb(206, 120, 48));

    const double low = std::min(from, to);
    const double high = std::max(from, to);
    constexpr double spacing = 10;
    for (double lamp = tunnel.from + 4; lamp < tunnel.to; lamp += spacing) {
        const double begin = std::max(lamp, low);
        const double end = std::min(lamp + 3.2, high);
        if (end <= begin)
            continue;
        for (const double aside : {left + shoulder + 0.5, right - shoulder - 0.9})
            view.glow({{begin, aside, ceiling - 0.05},
                       {begin, aside + 0.4, ceiling - 0.05},
                       {end, aside + 0.4, ceiling - 0.05},
                       {end, aside, ceiling - 0.05}},
                      rgb(255, 226, 160));
    }
}

void drawPortal(RoadView& view, double mouth)
{
    const double along = view.alongAt(view.aheadOf(mouth) - 0.02); // in the open air
    constexpr double left = medianAside - 0.8;
    constexpr double right = rightKerb + 0.5;
    const Colour stone = rgb(160, 158, 150);
    const Colour hill = rgb(82, 110, 74);
    const auto block = [&](double a0, double a1, double h0, double h1, Colour colour) {
        view.face({{along, a0, h0}, {along, a1, h0}, {along, a1, h1}, {along, a0, h1}}, colour);
    };
    // Wooded slopes: steps of foliage that get lower to the sides.
    for (int i = 8; i >= 1; --i) {
        const double reach = i * 7.0;
        const double height = 20 - i * 1.6 + 1.5 * chance(67, i);
        const Colour shade = brightened(hill, 0.82 + 0.18 * chance(68, i));
        block(right + 1, right + 1 + reach, 0, height, shade);
        block(left - 1 - reach, left - 1, 0, height, shade);
    }
    block(left - 4, right + 4, 8.6, 20, hill);
    block(left - 3, left, 0, 9, stone);
    block(right, right + 3, 0, 9, stone);
    block(left - 3, right + 3, 6.1, 9, stone);
    view.face({{along, left, 6.11}, {along, left, 4}, {along, left + 2, 6.11}}, stone);
    view.face({{along, right, 6.11}, {along, right, 4}, {along, right - 2, 6.11}}, stone);
    block(left - 3.4, right + 3.4, 9, 9.5, rgb(190, 188, 180));
    // The tube of the other direction.
    block(left - 12.5, left - 3, 0, 9, stone);
    block(left - 11.5, left - 3.6, 0, 4.2, rgb(40, 40, 42));
    view.face(
        {{along, left - 11.5, 4.2}, {along, left - 3.6, 4.2}, {along, left - 5.4, 6}, {along, left - 9.7, 6}},
        rgb(40, 40, 42));
    // A sign above the mouth.
    block(-3.2, 3.2, 6.7, 8.1, rgb(30, 98, 74));
    for (int i = 0; i < 4; ++i)
        block(-2.4 + i * 1.3, -1.5 + i * 1.3, 7.05, 7.75, rgb(226, 230, 226));
}

} // namespace marvo::demo
