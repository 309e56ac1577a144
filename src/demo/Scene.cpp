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

/// The places where pieces of the way meet, from the nearest to the last that is seen.
std::vector<double> visibleCuts(const Route& route, const RoadView& view)
{
    std::vector<double> cuts = pieces();
    double sight = farthest;
    for (const Stretch& tunnel : route.tunnels()) {
        // The mouths of tunnels lie between pieces, not within one.
        for (const double mouth : {tunnel.from, tunnel.to}) {
            if (view.aheadOf(mouth) > RoadView::nearest && view.aheadOf(mouth) < farthest)
                cuts.push_back(view.aheadOf(mouth));
        }
        // From the open air one does not look through a hill.
        const double entry = view.aheadOf(view.camera().look == Look::Ahead ? tunnel.from : tunnel.to);
        if (entry > 0 && !view.isInTunnel(view.camera().along))
            sight = std::min(sight, entry + std::min(tunnel.to - tunnel.from, 110.0));
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
    cuts.resize(last + 1);
    return cuts;
}

/// People who cross before the parked car, those within a piece of the way.
void drawWalkers(RoadView& view, double seconds, double from, double to)
{
    struct Walker
    {
        double ahead;
        double begin; ///< metres to the right at second 0 of the half minute
        double speed; ///< m/s to the right
        Colour coat;
    };
    static constexpr std::array walkers{Walker{9.0, -13.0, 1.3, rgb(150, 52, 60)},
                                        Walker{7.4, 15.0, -1.15, rgb(70, 96, 140)},
                                        Walker{10.2, -19.5, 1.5, rgb(196, 190, 176)}};
    for (const Walker& walker : walkers) {
        const double along = view.alongAt(walker.ahead);
        const double aside = walker.begin + walker.speed * std::fmod(seconds, 30);
        if ((along - from) * (along - to) <= 0)
            drawWalker(view, {along, aside, 0}, seconds * 6.5 + walker.ahead, walker.coat);
    }
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

    RoadView view(picture, m_drive.route(), camera);
    m_panorama.drawInto(picture, view.bearing(), static_cast<int>(std::ceil(camera.horizon)));
    for (int row = std::max(0, static_cast<int>(std::ceil(camera.horizon))); row < picture.height(); ++row) {
        const double away = RoadView::cameraHeight * m_focalLength / (row + 0.5 - camera.horizon);
        picture.fillSpan(row, 0, picture.width(), view.lit(rgb(142, 146, 128), away, false));
    }
    drawWorld(view, seconds);
    drawOwnCar(picture);

    const int dot = std::max(1, m_height / 240);
    picture.drawText(6 * dot, m_height - 11 * dot, dot, stamp, rgb(250, 250, 246));
}

void Scene::drawWorld(RoadView& view, double seconds) const
{
    const Route& route = m_drive.route();
    const std::vector<double> cuts = visibleCuts(route, view);
    std::vector<Vehicle> vehicles = trafficAt(m_drive, seconds);
    std::ranges::sort(vehicles, {}, [&](const Vehicle& v) { return -view.aheadOf(v.distance); });
    auto vehicle = vehicles.begin();
    const double light = route.trafficLight() + 44;
    const bool outside = !view.isInTunnel(view.camera().along);

    for (std::size_t i = cuts.size() - 1; i-- > 0;) {
        const double from = view.alongAt(cuts[i]);
        const double to = view.alongAt(cuts[i + 1]);
        const Stretch* tunnel = route.tunnelAt((from + to) / 2);
        if (tunnel != nullptr) {
            if (i + 2 == cuts.size() && outside) // the dark end of what is seen, or the light beyond
                view.rect({to, medianAside - 0.8, 0}, {to, rightKerb + 0.5, 6.1},
                          route.tunnelAt(2 * to - from) ? rgb(30, 28, 24) : rgb(232, 234, 230),
                          RoadView::Paint::Lamp);
            drawTunnel(view, *tunnel, from, to);
        }
        drawRoad(view, route, from, to);
        if (tunnel == nullptr) {
            drawBuildings(view, route, from, to);
            drawTreesAndLamps(view, route, from, to);
        } else if (std::abs(from - tunnel->from) < 0.01 || std::abs(from - tunnel->to) < 0.01) {
            drawPortal(view, from);
        }
        if ((light - from) * (light - to) <= 0)
            drawTrafficLight(view, light, seconds >= m_drive.greenTime());
        for (; vehicle != vehicles.end() && view.aheadOf(vehicle->distance) >= cuts[i]; ++vehicle) {
            if (view.aheadOf(vehicle->distance) < cuts.back())
                drawVehicle(view, *vehicle);
        }
        if (seconds >= m_drive.duration() + 60)
            drawWalkers(view, seconds, from, to);
    }
}

/// What the camera sees of its own car: the bonnet's edge, or the rear window's frame.
void Scene::drawOwnCar(Canvas& picture) const
{
    const double w = m_width;
    const double h = m_height;
    const auto arch = [&](double top, Colour colour) {
        constexpr int steps = 14;
        std::array<Point, steps + 3> points{Point{w, h}, Point{0, h}};
        for (int i = 0; i <= steps; ++i) {
            const double across = static_cast<double>(i) / steps;
            points[i + 2] = {across * w, h * (top + 0.055 * (2 * across - 1) * (2 * across - 1))};
        }
        picture.fillPolygon(points, colour);
    };
    if (m_look == Look::Ahead) {
        arch(0.905, rgb(66, 72, 80));
        arch(0.912, rgb(38, 42, 48));
        return;
    }
    arch(0.885, rgb(30, 31, 33));
    for (const double side : {0.0, w}) {
        const double in = side == 0 ? w : -w;
        const Point pillar[] = {
            {side, 0}, {side + in * 0.10, 0}, {side + in * 0.012, h * 0.66}, {side, h * 0.95}};
        picture.fillPolygon(pillar, rgb(20, 21, 22));
    }
}

} // namespace marvo::demo
