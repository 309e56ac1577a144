// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/Noise.h"
#include "demo/Roadside.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace marvo::demo {

namespace {

constexpr double lotLength = 24;   // metres of road a house has
constexpr double treeSpacing = 13; // metres
constexpr double lampSpacing = 39; // metres
constexpr double slopeLength = 70; // metres before and after a tunnel without houses
constexpr double floorHeight = 3.3;

/// A place of the row along one side of the road.
struct RowPlace
{
    std::int64_t index = 0;
    bool left = false;

    double draw(std::uint64_t what) const { return chance(what + (left ? 500 : 0), index); }
    /// One of a table.
    template <typename Table>
    auto pick(std::uint64_t what, const Table& table) const
    {
        return table[static_cast<std::size_t>(draw(what) * static_cast<double>(table.size()))];
    }
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
    static constexpr std::array signs{rgb(196, 60, 52), rgb(36, 104, 170),  rgb(232, 188, 60),
                                      rgb(52, 140, 92), rgb(238, 238, 234), rgb(74, 62, 120)};
    const double kind = place.draw(12);
    const double height = kind < 0.55   ? 8 + 9 * place.draw(13)
                          : kind < 0.88 ? 17 + 15 * place.draw(13)
                                        : 34 + 20 * place.draw(13);
    double near = static_cast<double>(place.index) * lotLength + 0.8 * place.draw(14);
    double far = near + lotLength - 1.2 - 5 * place.draw(15);
    if (view.camera().look == Look::Back)
        std::swap(near, far);
    if (view.aheadOf(far) <= RoadView::nearest + 0.5)
        return;
    near = view.alongAt(std::max(view.aheadOf(near), RoadView::nearest)); // cut off beside the camera
    const double away = view.aheadOf(near);
    const double aside = place.outside(pavementWidth + 1 + 3 * place.draw(16));
    const Colour wall = place.pick(11, walls);
    view.rect({near, aside, 0}, {near, aside + (place.left ? -16 : 16), height}, brightened(wall, 0.8));
    const auto front = [&](double low, double high, Colour colour, double from = 0, double to = 1) {
        view.rect({std::lerp(far, near, from), aside, low}, {std::lerp(far, near, to), aside, high}, colour);
    };
    front(0, height, wall);
    front(height - 0.6, height, brightened(wall, 0.9));
    const Colour glass = mixed(rgb(58, 70, 84), rgb(120, 140, 160), place.draw(17));
    const bool ribbons = place.draw(18) < 0.5 || away > 60;
    const double length = std::abs(far - near);
    for (double low = 4.6; away < 170 && low + 1.7 < height; low += floorHeight) {
        if (ribbons)
            front(low, low + 1.6, glass, 0.04, 0.96);
        for (double at = 0.7; !ribbons && at + 2.0 < length; at += 3.4) // from the far end, which stays
            front(low, low + 1.6, glass, at / length, (at + 2.0) / length);
    }
    if (away < 110) {
        front(0, 2.7, rgb(70, 76, 84), 0.03, 0.97);
        front(2.8, 3.8, place.pick(19, signs), 0.03, 0.97);
    }
}

void drawTree(RoadView& view, const RowPlace& place, double along)
{
    const double aside = place.outside(1.1);
    const Colour leaves = mixed(rgb(58, 96, 46), rgb(104, 136, 62), place.draw(21));
    const double middle = 4.6 + 1.2 * place.draw(22);
    const double reach = 1.9 + 0.7 * place.draw(23);
    view.rect({along, aside - 0.13, 0}, {along, aside + 0.13, middle}, rgb(86, 72, 58));
    const auto clump = [&](double dx, double dy, double share, double light) {
        const double a = aside + dx * reach;
        const double h = middle + dy * reach;
        const double size = share * reach;
        view.face({{along, a - size, h},
                   {along, a - 0.7 * size, h - 0.66 * size},
                   {along, a, h - 0.86 * size},
                   {along, a + 0.7 * size, h - 0.66 * size},
                   {along, a + size, h},
                   {along, a + 0.72 * size, h + 0.75 * size},
                   {along, a, h + 1.05 * size},
                   {along, a - 0.72 * size, h + 0.75 * size}},
                  brightened(leaves, light));
    };
    clump(0, 0, 1, 0.78);
    clump(-0.35, 0.35, 0.66, 1);
    clump(0.42, -0.1, 0.5, 0.9);
}

} // namespace

void drawBuildings(RoadView& view, const Route& route, double from, double to)
{
    const bool back = view.camera().look == Look::Back;
    for (const bool left : {true, false}) {
        const auto house = [&](std::int64_t index) {
            const RowPlace place{index, left};
            if (place.draw(24) >= 0.08 &&
                !isBesideTunnel(route, (double(index) + 0.5) * lotLength, slopeLength))
                drawHouse(view, place);
        };
        eachPlace(from, to, lotLength, back ? lotLength : 0, house);
        if (view.aheadOf(from) <= RoadView::nearest + 0.01) // the lot beside the camera
            house(static_cast<std::int64_t>(std::floor(from / lotLength)));
    }
}

void drawTreesAndLamps(RoadView& view, const Route& route, double from, double to)
{
    for (const bool left : {true, false}) {
        eachPlace(from, to, treeSpacing, 0, [&](std::int64_t index) {
            const double along = static_cast<double>(index) * treeSpacing;
            const RowPlace place{index, left};
            if (place.draw(25) > 0.15 && !isBesideTunnel(route, along, 25))
                drawTree(view, place, along);
        });
        eachPlace(from, to, lampSpacing, 6, [&](std::int64_t index) {
            const double along = static_cast<double>(index) * lampSpacing + 6;
            const double foot = RowPlace{index, left}.outside(0.5);
            const double head = RowPlace{index, left}.outside(-1.9);
            if (isBesideTunnel(route, along, 10))
                return;
            view.rect({along, foot - 0.08, 0}, {along, foot + 0.08, 8.8}, rgb(128, 134, 138));
            view.face({{along, foot, 8.7}, {along, head, 9.2}, {along, head, 9.4}, {along, foot, 8.9}},
                      rgb(128, 134, 138));
        });
    }
}

} // namespace marvo::demo
