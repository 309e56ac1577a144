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
constexpr double slopeLength = 70; // metres before and behind a tunnel without houses

/// A place of the row along one side of the road.
struct RowPlace
{
    std::int64_t index = 0;
    bool left = false;

    std::uint64_t seed(std::uint64_t what) const { return what + (left ? 500 : 0); }
    double draw(std::uint64_t what) const { return chance(seed(what), index); }
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
    const auto first = static_cast<std::int64_t>(std::ceil(low / spacing));
    for (std::int64_t i = first; static_cast<double>(i) * spacing < high; ++i)
        visit(i);
}

/// One house: a face along the road, a face towards the camera, rows of windows, a shop below.
class House
{
public:
    House(RoadView& view, const RowPlace& place) : m_view(view), m_place(place)
    {
        static const std::array walls{rgb(196, 186, 172), rgb(176, 148, 126), rgb(204, 204, 200),
                                      rgb(150, 156, 164), rgb(186, 172, 150), rgb(168, 122, 100),
                                      rgb(214, 208, 196)};
        m_wall = walls[mixedBits(place.seed(11), place.index) % walls.size()];
        const double kind = place.draw(12);
        m_height = kind < 0.55   ? 8 + 9 * place.draw(13)
                   : kind < 0.88 ? 17 + 15 * place.draw(13)
                                 : 34 + 20 * place.draw(13);
        const double begin = static_cast<double>(place.index) * lotLength + 0.8 * place.draw(14);
        const double end = begin + lotLength - 1.2 - 5 * place.draw(15);
        const bool back = view.camera().look == Look::Back;
        m_near = back ? end : begin;
        m_far = back ? begin : end;
        // What has been passed already is cut off beside the camera.
        if (view.aheadOf(m_near) < RoadView::nearest)
            m_near = view.alongAt(RoadView::nearest);
        const double setback = pavementWidth + 1 + 3 * place.draw(16);
        m_front = place.left ? leftKerb - setback : rightKerb + setback;
        m_rear = m_front + (place.left ? -16 : 16);
    }

    bool isBehindCamera() const { return m_view.aheadOf(m_far) <= RoadView::nearest + 0.5; }

    void draw()
    {
        const double away = m_view.aheadOf(m_near);
        gable(0, m_height, brightened(m_wall, 0.80));
        front(0, 1, 0, m_height, m_wall);
        front(0, 1, m_height - 0.6, m_height, brightened(m_wall, 0.9));
        if (away < 170)
            windows(away);
        if (away < 110)
            shop();
    }

private:
    /// Part of the face along the road, by shares of its length and metres of height.
    void front(double begin, double end, double low, double high, Colour colour, double out = 0)
    {
        const double a = std::lerp(m_near, m_far, begin);
        const double b = std::lerp(m_near, m_far, end);
        const double aside = m_front + (m_place.left ? out : -out);
        m_view.face({{a, aside, low}, {b, aside, low}, {b, aside, high}, {a, aside, high}}, colour);
    }

    void gable(double low, double high, Colour colour)
    {
        m_view.face(
            {{m_near, m_front, low}, {m_near, m_rear, low}, {m_near, m_rear, high}, {m_near, m_front, high}},
            colour);
    }

    void windows(double away)
    {
        const Colour glass = mixed(rgb(58, 70, 84), rgb(120, 140, 160), m_place.draw(17));
        const bool ribbons = m_place.draw(18) < 0.5 || away > 60;
        constexpr double floorHeight = 3.3;
        const double length = std::abs(m_far - m_near);
        const int columns = std::max(1, static_cast<int>(length / 3.4));
        for (double low = 4.6; low + 1.7 < m_height; low += floorHeight) {
            if (ribbons) {
                front(0.04, 0.96, low, low + 1.6, glass);
                continue;
            }
            // Counted from the far end, so that windows stay where they are while the near end is cut off.
            for (int i = 0; i < columns; ++i) {
                const double end = 1 - (i * 3.4 + 0.7) / length;
                front(end - 2.0 / length, end, low, low + 1.6, glass);
            }
        }
        // Windows in the gable, as far as it is seen.
        if (away > 8 && away < 90) {
            const double step = m_place.left ? -4.0 : 4.0;
            for (double low = 4.6; low + 1.7 < m_height; low += floorHeight) {
                for (int i = 0; i < 3; ++i) {
                    const double a = m_front + step * (0.5 + i);
                    m_view.face({{m_near, a, low},
                                 {m_near, a + step * 0.5, low},
                                 {m_near, a + step * 0.5, low + 1.5},
                                 {m_near, a, low + 1.5}},
                                brightened(glass, 0.85));
                }
            }
        }
    }

    void shop()
    {
        static const std::array signs{rgb(196, 60, 52), rgb(36, 104, 170),  rgb(232, 188, 60),
                                      rgb(52, 140, 92), rgb(238, 238, 234), rgb(74, 62, 120)};
        const Colour sign = signs[mixedBits(m_place.seed(19), m_place.index) % signs.size()];
        front(0.03, 0.97, 0, 2.7, rgb(70, 76, 84));
        front(0.03, 0.97, 2.8, 3.8, sign, 0.4);
        front(0.30, 0.62, 3.05, 3.5, brightened(sign, sign.y > 150 ? 0.4 : 1.7), 0.42);
    }

    RoadView& m_view;
    RowPlace m_place;
    Colour m_wall;
    double m_height = 0;
    double m_near = 0;
    double m_far = 0;
    double m_front = 0;
    double m_rear = 0;
};

/// The wall along a palace, with a tiled top and the roofs behind it.
void drawWall(RoadView& view, double from, double to)
{
    const double aside = leftKerb - pavementWidth - 0.5;
    const auto course = [&](double low, double high, double out, Colour colour) {
        view.face({{from, aside + out, low},
                   {to, aside + out, low},
                   {to, aside + out, high},
                   {from, aside + out, high}},
                  colour);
    };
    course(0, 1.1, 0, rgb(150, 144, 134));
    course(1.1, 3.4, 0, rgb(196, 178, 152));
    course(3.4, 3.9, 0.3, rgb(66, 70, 72));
    course(3.9, 4.2, 0, rgb(92, 96, 98));
}

void drawTree(RoadView& view, const RowPlace& place, double along)
{
    const double aside = place.left ? leftKerb - 1.1 : rightKerb + 1.1;
    const double away = view.aheadOf(along);
    const Colour leaves = mixed(rgb(58, 96, 46), rgb(104, 136, 62), place.draw(21));
    const double middle = 4.6 + 1.2 * place.draw(22);
    const double reach = 1.9 + 0.7 * place.draw(23);
    if (away < 60)
        view.shadow({{along - 1.8, aside - 1.6, 0},
                     {along - 1.8, aside + 2.6, 0},
                     {along + 1.8, aside + 2.6, 0},
                     {along + 1.8, aside - 1.6, 0}},
                    0.22);
    view.face({{along, aside - 0.13, 0},
               {along, aside + 0.13, 0},
               {along, aside + 0.1, middle},
               {along, aside - 0.1, middle}},
              rgb(86, 72, 58));
    const auto clump = [&](double dx, double dy, double size, Colour colour) {
        const double a = aside + dx;
        const double h = middle + dy;
        view.face({{along, a - size, h},
                   {along, a - 0.7 * size, h - 0.66 * size},
                   {along, a, h - 0.86 * size},
                   {along, a + 0.7 * size, h - 0.66 * size},
                   {along, a + size, h},
                   {along, a + 0.72 * size, h + 0.75 * size},
                   {along, a, h + 1.05 * size},
                   {along, a - 0.72 * size, h + 0.75 * size}},
                  colour);
    };
    clump(0, 0, reach, brightened(leaves, 0.78));
    if (away > 120)
        return;
    clump(-0.35 * reach, 0.35 * reach, 0.66 * reach, leaves);
    clump(0.42 * reach, -0.1 * reach, 0.5 * reach, brightened(leaves, 0.9));
    clump(-0.1 * reach, 0.62 * reach, 0.4 * reach, brightened(leaves, 1.12));
}

void drawLamp(RoadView& view, const RowPlace& place, double along)
{
    const double foot = place.left ? leftKerb - 0.5 : rightKerb + 0.5;
    const double head = foot + (place.left ? 2.4 : -2.4);
    const Colour steel = rgb(128, 134, 138);
    view.face({{along, foot - 0.1, 0},
               {along, foot + 0.1, 0},
               {along, foot + 0.06, 8.8},
               {along, foot - 0.06, 8.8}},
              steel);
    view.face({{along, foot, 8.7}, {along, head, 9.2}, {along, head, 9.32}, {along, foot, 8.9}}, steel);
    view.face({{along, head - 0.4, 9.12},
               {along, head + 0.4, 9.12},
               {along, head + 0.35, 9.4},
               {along, head - 0.35, 9.4}},
              rgb(86, 92, 96));
}

} // namespace

void drawBuildings(RoadView& view, const Route& route, double from, double to)
{
    const bool back = view.camera().look == Look::Back;
    const bool nearestPiece = view.aheadOf(from) <= RoadView::nearest + 0.01;
    for (const bool left : {true, false}) {
        const auto house = [&](std::int64_t index) {
            const double middle = (static_cast<double>(index) + 0.5) * lotLength;
            if (isBesideTunnel(route, middle, slopeLength) || (left && route.palaceWall().contains(middle)))
                return;
            const RowPlace place{index, left};
            if (place.draw(24) < 0.08) // a gap in the row
                return;
            House drawn(view, place);
            if (!drawn.isBehindCamera())
                drawn.draw();
        };
        eachPlace(from, to, lotLength, back ? lotLength : 0, house);
        if (nearestPiece) // the lot beside the camera
            house(static_cast<std::int64_t>(std::floor(view.alongAt(RoadView::nearest) / lotLength)));
    }
    if (route.palaceWall().contains(from))
        drawWall(view, from, to);
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
            if (!isBesideTunnel(route, along, 10))
                drawLamp(view, {index, left}, along);
        });
    }
}

} // namespace marvo::demo
