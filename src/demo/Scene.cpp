// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/Scene.h"

#include "demo/Noise.h"
#include "demo/Roadside.h"
#include "demo/Traffic.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace marvo::demo {

namespace {

constexpr double focalShare = 0.62; // of the picture's width: 78 degrees from side to side
constexpr double horizonShare = 0.44;
constexpr double farthest = 330; // metres
constexpr double behindNose = 4; // metres from the front camera to the rear one

/// Distances from the camera at which the way is cut into pieces: fine near by, coarse far away.
const std::vector<double>& pieces()
{
    static const std::vector<double> all = [] {
        std::vector<double> out{RoadView::nearest};
        while (out.back() < farthest)
            out.push_back(out.back() + std::max(1.5, out.back() * 0.085));
        return out;
    }();
    return all;
}

/// How far one sees, and what ends the view: from the open air one does not look through a hill.
double sightFrom(const Route& route, const RoadView& view)
{
    if (view.isInTunnel(view.camera().along))
        return farthest;
    double sight = farthest;
    for (const Stretch& tunnel : route.tunnels()) {
        const double mouth = view.camera().look == Look::Ahead ? tunnel.from : tunnel.to;
        const double length = tunnel.to - tunnel.from;
        if (view.aheadOf(mouth) > 0)
            sight = std::min(sight, view.aheadOf(mouth) + std::min(length, 110.0));
    }
    return sight;
}

RoadView::Light lightAt(const Route& route, double along)
{
    const Stretch* tunnel = route.tunnelAt(along);
    if (tunnel == nullptr)
        return {1, 0.28};
    // The camera takes a moment to get used to the dark, and begins before the exit to get used to the light.
    const double depth = std::min(along - tunnel->from, (tunnel->to - along) * 0.7);
    const double used = std::clamp(depth / 22, 0.0, 1.0);
    return {1 + 0.6 * used, 0.28 + 0.72 * used};
}

} // namespace

Scene::Scene(const Drive& drive, Look look, int width, int height)
    : m_drive(drive),
      m_look(look),
      m_width(width),
      m_height(height),
      m_focalLength(focalShare * width),
      m_panorama(m_focalLength, static_cast<int>(height * 0.56) + 2)
{}

void Scene::draw(Canvas& picture, double seconds, std::string_view stamp) const
{
    const Motion motion = m_drive.at(seconds);
    const double liveliness = std::min(1.0, motion.speed / 14);
    // The nose goes down when braking, and the road is never quite even.
    const double pitch = -0.0032 * motion.acceleration +
                         0.0014 * liveliness * smoothNoise(201, motion.distance / 2.7) +
                         0.0010 * liveliness * smoothNoise(202, motion.distance / 9);
    RoadView::Camera camera;
    camera.look = m_look;
    camera.along = motion.distance - (m_look == Look::Back ? behindNose : 0);
    camera.aside = m_drive.kerbside(motion.distance);
    camera.focalLength = m_focalLength;
    camera.horizon = m_height * horizonShare - (m_look == Look::Ahead ? 1 : -1) * pitch * m_focalLength;

    const Route& route = m_drive.route();
    const RoadView::Light light = lightAt(route, camera.along);
    RoadView view(picture, route, camera, light);
    m_panorama.drawInto(picture, view.bearing(), static_cast<int>(std::ceil(camera.horizon)));
    for (int row = std::max(0, static_cast<int>(std::ceil(camera.horizon))); row < picture.height(); ++row) {
        const double away = camera.height * m_focalLength / (row + 0.5 - camera.horizon);
        picture.fillSpan(row, 0, picture.width(), view.lit(rgb(142, 146, 128), away, false));
    }
    drawWorld(view, seconds);
    drawCar(picture);

    const int dot = std::max(1, m_height / 240);
    picture.drawText(6 * dot, m_height - 11 * dot, dot, stamp, rgb(250, 250, 246));
}

void Scene::drawWorld(RoadView& view, double seconds) const
{
    const Route& route = m_drive.route();
    const double sight = sightFrom(route, view);
    std::vector<double> cuts = pieces();
    // The mouths of tunnels lie between pieces, not within one.
    for (const Stretch& tunnel : route.tunnels()) {
        for (const double mouth : {tunnel.from, tunnel.to}) {
            const double ahead = view.aheadOf(mouth);
            if (ahead > RoadView::nearest && ahead < farthest)
                cuts.push_back(ahead);
        }
    }
    std::ranges::sort(cuts);
    // Where the way turns off to the side nothing of it is seen any more.
    std::size_t last = 1;
    double depth = 0;
    while (last + 1 < cuts.size() && cuts[last] < sight) {
        const double next = view.depth({view.alongAt(cuts[last]), 0, 0});
        if (next < depth)
            break;
        depth = next;
        ++last;
    }

    std::vector<Vehicle> vehicles = trafficAt(m_drive, seconds);
    std::ranges::sort(vehicles, {}, [&](const Vehicle& v) { return -view.aheadOf(v.distance); });
    std::size_t vehicle = 0;

    const bool outside = !view.isInTunnel(view.camera().along);
    for (std::size_t i = last; i-- > 0;) {
        const double from = view.alongAt(cuts[i]);
        const double to = view.alongAt(cuts[i + 1]);
        const double middle = (from + to) / 2;
        const Stretch* tunnel = route.tunnelAt(middle);
        if (tunnel != nullptr) {
            if (i + 1 == last && outside) {
                // The end of what is seen: the far mouth when it is near, else the dark.
                const double end = view.camera().look == Look::Ahead ? tunnel->to : tunnel->from;
                const Colour seen = std::abs(end - to) < 3 ? rgb(232, 234, 230) : rgb(30, 28, 24);
                view.glow({{to, medianAside - 0.8, 0},
                           {to, rightKerb + 0.5, 0},
                           {to, rightKerb + 0.5, 6.1},
                           {to, medianAside - 0.8, 6.1}},
                          seen);
            }
            drawTunnel(view, *tunnel, from, to);
        }
        drawRoad(view, m_drive, from, to);
        if (tunnel == nullptr) {
            drawBuildings(view, route, from, to);
            drawTreesAndLamps(view, route, from, to);
        } else if (route.tunnelAt(from - (to - from) * 0.01) == nullptr ||
                   std::abs(from - tunnel->from) < 0.01 || std::abs(from - tunnel->to) < 0.01) {
            drawPortal(view, from);
        }
        const double light = route.trafficLight() + 44;
        if ((light - from) * (light - to) <= 0)
            drawTrafficLight(view, light, seconds >= m_drive.greenTime());
        for (; vehicle < vehicles.size() && view.aheadOf(vehicles[vehicle].distance) >= cuts[i]; ++vehicle) {
            if (view.aheadOf(vehicles[vehicle].distance) < cuts[last])
                drawVehicle(view, vehicles[vehicle]);
        }
        drawParkedLife(view, seconds, from, to);
    }
}

/// People who cross before the parked car.
void Scene::drawParkedLife(RoadView& view, double seconds, double from, double to) const
{
    if (seconds < m_drive.duration() + 60)
        return;
    struct Walker
    {
        double ahead;
        double begin; ///< metres to the right at second 0 of the minute
        double speed; ///< m/s to the right
        Colour coat;
    };
    static const std::array walkers{Walker{9.0, -13.0, 1.3, rgb(150, 52, 60)},
                                    Walker{7.4, 15.0, -1.15, rgb(70, 96, 140)},
                                    Walker{10.2, -19.5, 1.5, rgb(196, 190, 176)}};
    const double clock = std::fmod(seconds, 30);
    for (const Walker& walker : walkers) {
        const double along = view.alongAt(walker.ahead);
        if ((along - from) * (along - to) > 0)
            continue;
        const double aside = walker.begin + walker.speed * clock;
        drawWalker(view, {along, aside, 0}, seconds * 6.5 + walker.ahead, walker.coat);
    }
}

/// What the camera sees of the car itself: the bonnet's edge, or the rear window's frame.
void Scene::drawCar(Canvas& picture) const
{
    const double w = m_width;
    const double h = m_height;
    constexpr int steps = 14;
    const auto arch = [&](double top, Colour colour) {
        std::array<Point, steps + 3> points{};
        for (int i = 0; i <= steps; ++i) {
            const double across = static_cast<double>(i) / steps;
            const double side = 2 * across - 1;
            points[i] = {across * w, h * (top + 0.055 * side * side)};
        }
        points[steps + 1] = {w, h};
        points[steps + 2] = {0, h};
        picture.fillPolygon(points, colour);
    };
    if (m_look == Look::Ahead) {
        arch(0.905, rgb(66, 72, 80));
        arch(0.912, rgb(38, 42, 48));
        return;
    }
    arch(0.885, rgb(30, 31, 33));
    arch(0.90, rgb(18, 19, 20));
    for (int i = 0; i < 6; ++i) {
        const double y = h * (0.20 + 0.105 * i);
        const Point wire[] = {
            {0, y}, {w, y}, {w, y + std::max(1.0, h / 300)}, {0, y + std::max(1.0, h / 300)}};
        picture.blendPolygon(wire, rgb(60, 40, 34), 0.22);
    }
    for (const double side : {0.0, w}) {
        const double in = side == 0 ? 1 : -1;
        const Point pillar[] = {
            {side, 0}, {side + in * w * 0.10, 0}, {side + in * w * 0.012, h * 0.66}, {side, h * 0.95}};
        picture.fillPolygon(pillar, rgb(20, 21, 22));
    }
}

} // namespace marvo::demo
