// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/Noise.h"
#include "demo/Roadside.h"

#include <cmath>

namespace marvo::demo {

namespace {

constexpr Colour white = rgb(226, 226, 222);
constexpr Colour yellow = rgb(222, 172, 52);
constexpr Colour concrete = rgb(124, 120, 110);
constexpr Colour stone = rgb(160, 158, 150);
constexpr double tubeLeft = medianAside - 0.8;
constexpr double tubeRight = rightKerb + 0.5;
constexpr double tubeWall = 4.0;
constexpr double tubeCeiling = 6.1;

/// Where we wait at the red light, behind another car, to the line.
constexpr double stopLineAhead = 13;

/// Calls paint(begin, end) for the marks of a pattern, cut to a piece of the way.
template <typename Paint>
void repeated(double from, double to, double period, double length, Paint paint)
{
    const double low = std::min(from, to);
    const double high = std::max(from, to);
    for (double mark = std::floor(low / period) * period; mark < high; mark += period) {
        const double begin = std::max(low, mark);
        const double end = std::min(high, mark + length);
        if (end > begin)
            paint(begin, end);
    }
}

} // namespace

void drawRoad(RoadView& view, const Route& route, double from, double to)
{
    const bool tunnel = view.isInTunnel(from);
    const double near = view.aheadOf(from);
    const auto strip = [&](double left, double right, Colour colour) {
        view.rect({from, left, 0}, {to, right, 0}, colour);
    };
    if (!tunnel) {
        for (const auto& [kerb, out] : {std::pair(leftKerb, -1.0), std::pair(rightKerb, 1.0)}) {
            strip(kerb, kerb + out * pavementWidth, rgb(166, 158, 148));
            strip(kerb, kerb + out * 0.3, rgb(172, 170, 164));
        }
    }
    strip(tunnel ? tubeLeft : leftKerb, rightKerb, rgb(92, 94, 97));
    if (near < 90) {
        for (const double wheel : {-laneWidth, 0.0, laneWidth}) { // wheels darken the lanes
            strip(wheel - 1.06, wheel - 0.5, rgb(84, 86, 89));
            strip(wheel + 0.5, wheel + 1.06, rgb(84, 86, 89));
        }
    }
    if (near > 170)
        return;
    // Far away a line is at least as wide as it takes to be seen.
    const double half = std::max(0.07, near * 0.0011);
    const double edge = 1.5 * laneWidth + 0.1;
    strip(edge - half, edge + half, white);
    for (const double line : {medianAside - 0.16, medianAside + 0.16})
        strip(line - half, line + half, yellow);
    for (const double line : {-0.5 * laneWidth, 0.5 * laneWidth, medianAside - 1.2 * laneWidth}) {
        if (tunnel && line > medianAside)
            strip(line - half, line + half, white);
        else if (!tunnel)
            repeated(from, to, 8, 3, [&](double begin, double end) {
                view.rect({begin, line - half, 0}, {end, line + half, 0}, white);
            });
    }
    const double stopLine = route.trafficLight() + stopLineAhead;
    const double low = std::max(std::min(from, to), stopLine + 3.0);
    const double high = std::min(std::max(from, to), stopLine + 7.5);
    for (double bar = leftKerb + 0.4; low < high && bar < rightKerb - 0.5; bar += 1.0)
        view.rect({low, bar, 0}, {high, bar + 0.5, 0}, white);
    if ((stopLine - from) * (stopLine - to) <= 0)
        view.rect({stopLine, medianAside + 0.3, 0}, {stopLine + 0.5, rightKerb - 0.5, 0}, white);
}

void drawTrafficLight(RoadView& view, double along, bool green)
{
    constexpr Colour steel = rgb(120, 126, 130);
    const double pole = rightKerb + 1;
    const double arm = 5.6;
    view.rect({along, pole - 0.1, 0}, {along, pole + 0.1, arm + 0.3}, steel);
    view.rect({along, -0.6, arm}, {along, pole, arm + 0.14}, steel);
    view.rect({along, -0.8, arm - 0.3}, {along, 1.0, arm + 0.35}, rgb(34, 36, 38));
    if (view.camera().look == Look::Back)
        return;
    const auto lamp = [&](double aside, Colour colour) {
        view.rect({along, aside - 0.18, arm - 0.18}, {along, aside + 0.18, arm + 0.18}, colour,
                  RoadView::Paint::Lamp);
    };
    lamp(-0.5, green ? rgb(60, 24, 24) : rgb(255, 58, 44));
    lamp(0.1, rgb(58, 48, 22));
    lamp(0.7, green ? rgb(70, 250, 170) : rgb(22, 56, 44));
}

// The tube across: walls, slanted shoulders, ceiling.
void drawTunnel(RoadView& view, const Stretch& tunnel, double from, double to)
{
    constexpr double shoulder = 2.0;
    constexpr Colour tiles = rgb(188, 184, 168);
    constexpr Colour base = rgb(96, 96, 92);
    constexpr Colour band = rgb(206, 120, 48);
    struct Panel
    {
        double aside0, height0, aside1, height1;
        Colour colour;
    };
    static constexpr Panel panels[] = {
        {tubeLeft, 0, tubeLeft, tubeWall, tiles},
        {tubeRight, 0, tubeRight, tubeWall, tiles},
        {tubeLeft, tubeWall, tubeLeft + shoulder, tubeCeiling, concrete},
        {tubeRight, tubeWall, tubeRight - shoulder, tubeCeiling, concrete},
        {tubeLeft + shoulder, tubeCeiling, tubeRight - shoulder, tubeCeiling, rgb(96, 92, 84)},
        {tubeLeft, 0, tubeLeft, 0.7, base},
        {tubeRight, 0, tubeRight, 0.7, base},
        {tubeRight - 1.1, 0.25, tubeRight, 0.25, rgb(120, 118, 112)},
        {tubeLeft, 1.25, tubeLeft, 1.4, band},
        {tubeRight, 1.25, tubeRight, 1.4, band},
    };
    const double beyond = to + (to - from) * 0.06; // no gaps between pieces
    for (const auto& [a0, h0, a1, h1, colour] : panels)
        view.face({{from, a0, h0}, {from, a1, h1}, {beyond, a1, h1}, {beyond, a0, h0}}, colour);
    repeated(from - tunnel.from, to - tunnel.from, 10, 3.2, [&](double begin, double end) {
        for (const double aside : {tubeLeft + shoulder + 0.5, tubeRight - shoulder - 0.9})
            view.rect({tunnel.from + begin, aside, tubeCeiling - 0.05},
                      {tunnel.from + end, aside + 0.4, tubeCeiling - 0.05}, rgb(255, 226, 160),
                      RoadView::Paint::Lamp);
    });
}

void drawPortal(RoadView& view, double mouth)
{
    constexpr Colour hill = rgb(82, 110, 74);
    const double along = view.alongAt(view.aheadOf(mouth) - 0.02); // in the open air
    const auto block = [&](double a0, double a1, double h0, double h1, Colour colour) {
        view.rect({along, a0, h0}, {along, a1, h1}, colour);
    };
    // Wooded slopes: steps of foliage that get lower to the sides.
    for (int i = 8; i >= 1; --i) {
        const double height = 20 - i * 1.6;
        const Colour shade = brightened(hill, 0.82 + 0.18 * chance(68, i));
        block(tubeRight + 1, tubeRight + 1 + i * 7.0, 0, height, shade);
        block(tubeLeft - 1 - i * 7.0, tubeLeft - 1, 0, height, shade);
    }
    block(tubeLeft - 4, tubeRight + 4, 8.6, 20, hill);
    for (const double side : {tubeLeft - 3, tubeRight})
        block(side, side + 3, 0, 9, stone);
    block(tubeLeft - 3, tubeRight + 3, tubeCeiling, 9, stone);
    view.face({{along, tubeLeft, 6.11}, {along, tubeLeft, 4}, {along, tubeLeft + 2, 6.11}}, stone);
    view.face({{along, tubeRight, 6.11}, {along, tubeRight, 4}, {along, tubeRight - 2, 6.11}}, stone);
    block(-3.2, 3.2, 6.7, 8.1, rgb(30, 98, 74)); // a sign
    for (int i = 0; i < 4; ++i)
        block(-2.4 + i * 1.3, -1.5 + i * 1.3, 7.05, 7.75, rgb(226, 230, 226));
}

} // namespace marvo::demo
