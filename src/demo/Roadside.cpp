// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/Roadside.h"

#include "demo/Noise.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace marvo::demo {

namespace {

constexpr Colour white = rgb(226, 226, 222);
constexpr Colour yellow = rgb(222, 172, 52);
constexpr Colour concrete = rgb(108, 104, 96);
constexpr Colour stone = rgb(160, 158, 150);
constexpr double tubeLeft = medianAside - 0.8;
constexpr double tubeRight = rightKerb + 0.5;
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

constexpr double lotLength = 24;   // metres of road a house has
constexpr double treeSpacing = 13; // metres
constexpr double floorHeight = 3.3;

/// A place of the row along one side of the road.
struct RowPlace
{
    std::int64_t index = 0;
    bool left = false;

    double draw(std::uint64_t what) const { return chance(what + (left ? 500 : 0), index); }
    /// A distance from the kerb, away from the road.
    double outside(double metres) const { return left ? leftKerb - metres : rightKerb + metres; }
};

bool isBesideTunnel(const Route& route, double along, double margin)
{
    return std::ranges::any_of(route.tunnels(), [&](const Stretch& tunnel) {
        return along > tunnel.from - margin && along < tunnel.to + margin;
    });
}

/// Calls visit(index) for each place of a row whose nearer end lies within a piece of the way.
template <typename Visit>
void eachPlace(double from, double to, double spacing, double nearerEnd, Visit visit)
{
    const double low = std::min(from, to) - nearerEnd;
    const double high = std::max(from, to) - nearerEnd;
    for (auto i = static_cast<std::int64_t>(std::ceil(low / spacing)); double(i) * spacing < high; ++i)
        visit(i);
}

/// A house: a gable towards the camera, a front along the road with ribbons of windows and a shop below.
void drawHouse(RoadView& view, const RowPlace& place)
{
    static constexpr std::array walls{rgb(196, 186, 172), rgb(176, 148, 126), rgb(204, 204, 200),
                                      rgb(150, 156, 164), rgb(168, 122, 100), rgb(214, 208, 196)};
    const double height = 8 + (place.draw(12) < 0.6 ? 9 : 38) * place.draw(13);
    double near = static_cast<double>(place.index) * lotLength + 0.8 * place.draw(14);
    double far = near + lotLength - 1.2 - 5 * place.draw(15);
    if (view.camera().look == Look::Back)
        std::swap(near, far);
    if (view.aheadOf(far) <= RoadView::nearest + 0.5)
        return;
    near = view.alongAt(std::max(view.aheadOf(near), RoadView::nearest)); // cut off beside the camera
    const double away = view.aheadOf(near);
    const double aside = place.outside(pavementWidth + 1 + 3 * place.draw(16));
    const Colour wall = walls[static_cast<std::size_t>(place.draw(11) * walls.size())];
    view.rect({near, aside, 0}, {near, aside + (place.left ? -16 : 16), height}, brightened(wall, 0.8));
    const auto front = [&](double low, double high, Colour colour, double margin = 0) {
        view.rect({std::lerp(far, near, margin), aside, low}, {std::lerp(near, far, margin), aside, high},
                  colour);
    };
    front(0, height, wall);
    const Colour glass = mixed(rgb(58, 70, 84), rgb(120, 140, 160), place.draw(17));
    for (double low = 4.6; away < 170 && low + 1.7 < height; low += floorHeight)
        front(low, low + 1.6, glass, 0.04);
    if (away < 110) {
        front(0, 2.7, rgb(70, 76, 84), 0.03);
        front(2.8, 3.8, rgb(240 * place.draw(18), 90 + 70 * place.draw(19), 170 - 120 * place.draw(18)),
              0.03);
    }
}

void drawTree(RoadView& view, const RowPlace& place, double along)
{
    const double aside = place.outside(1.1);
    const Colour leaves = mixed(rgb(58, 96, 46), rgb(104, 136, 62), place.draw(21));
    const double middle = 4.6 + 1.2 * place.draw(22);
    const double reach = 1.9 + 0.7 * place.draw(23);
    view.rect({along, aside - 0.13, 0}, {along, aside + 0.13, middle}, rgb(86, 72, 58));
    view.ball({along, aside, middle}, reach, brightened(leaves, 0.78));
    view.ball({along, aside - 0.35 * reach, middle + 0.35 * reach}, 0.66 * reach, leaves);
    view.ball({along, aside + 0.42 * reach, middle - 0.1 * reach}, 0.5 * reach, brightened(leaves, 0.9));
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

void drawTunnel(RoadView& view, const Stretch& tunnel, double from, double to)
{
    const double beyond = to + (to - from) * 0.06; // no gaps between pieces
    for (const double side : {tubeLeft, tubeRight}) {
        view.rect({from, side, 0}, {beyond, side, tubeCeiling}, rgb(188, 184, 168));
        view.rect({from, side, 0}, {beyond, side, 0.7}, rgb(96, 96, 92));
        view.rect({from, side, 1.25}, {beyond, side, 1.4}, rgb(206, 120, 48));
    }
    view.rect({from, tubeLeft, tubeCeiling}, {beyond, tubeRight, tubeCeiling}, concrete);
    repeated(from - tunnel.from, to - tunnel.from, 10, 3.2, [&](double begin, double end) {
        for (const double aside : {tubeLeft + 2.5, tubeRight - 2.9})
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
    for (int i = 8; i >= 1; --i) { // wooded slopes, lower to the sides
        const Colour shade = brightened(hill, 0.82 + 0.18 * chance(68, i));
        block(tubeLeft - 1 - i * 7.0, tubeRight + 1 + i * 7.0, 0, 20 - i * 1.6, shade);
    }
    block(tubeLeft - 4, tubeRight + 4, 8.6, 20, hill);
    for (const double side : {tubeLeft - 3, tubeRight})
        block(side, side + 3, 0, 9, stone);
    block(tubeLeft - 3, tubeRight + 3, tubeCeiling, 9, stone);
}

void drawBuildings(RoadView& view, const Route& route, double from, double to)
{
    constexpr double slope = 70; // metres before and after a tunnel without houses
    const bool back = view.camera().look == Look::Back;
    for (const bool left : {true, false}) {
        const auto house = [&](std::int64_t index) {
            const RowPlace place{index, left};
            if (place.draw(24) >= 0.08 && !isBesideTunnel(route, (double(index) + 0.5) * lotLength, slope))
                drawHouse(view, place);
        };
        eachPlace(from, to, lotLength, back ? lotLength : 0, house);
        if (view.aheadOf(from) <= RoadView::nearest + 0.01) // the lot beside the camera
            house(static_cast<std::int64_t>(std::floor(from / lotLength)));
        eachPlace(from, to, treeSpacing, 0, [&](std::int64_t index) {
            const double along = static_cast<double>(index) * treeSpacing;
            const RowPlace place{index, left};
            if (place.draw(25) > 0.15 && !isBesideTunnel(route, along, 25))
                drawTree(view, place, along);
        });
    }
}

} // namespace marvo::demo
