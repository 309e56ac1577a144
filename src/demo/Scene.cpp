// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/Scene.h"

#include "demo/Noise.h"
#include "demo/Roadside.h"
#include "demo/Traffic.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>
#include <vector>

namespace marvo::demo {

namespace {

constexpr double focalShare = 0.62; // of the picture's width: 78 degrees from side to side
constexpr double horizonShare = 0.44;
constexpr double farthest = 330; // metres
constexpr double behindNose = 4; // metres from the front camera to the rear one

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

/// The sky, the hills and the distant houses in the direction that the camera looks.
void drawBackdrop(Canvas& picture, const RoadView& view)
{
    const double perDegree = view.camera().focalLength * degree; // pixels
    const double horizon = view.camera().horizon;
    const Colour zenith = rgb(92, 146, 206);
    for (int row = 0; row < std::min<double>(picture.height(), horizon + 1); ++row) {
        const double height = std::max(0.0, (horizon - row) / perDegree);
        picture.fillSpan(row, 0, picture.width(), mixed(haze, zenith, std::min(1.0, height / 26)));
    }
    const double middle = view.bearing() / degree;
    const double reach = picture.width() / 2.0 / perDegree;
    const auto column = [&](double bearing) {
        return picture.width() / 2.0 + std::remainder(bearing - middle, 360.0) * perDegree;
    };
    for (std::int64_t puff = 0; puff < 90; ++puff) {
        const double bearing = 36 * std::floor(double(puff) / 9) + 18 * chance(41, puff);
        if (std::abs(std::remainder(bearing - middle, 360.0)) > reach + 20)
            continue;
        const double height = 11 + 9 * chance(42, puff / 9) + 1.6 * chance(43, puff);
        const double half = (1.5 + 3 * chance(44, puff)) * perDegree;
        const Colour white = mixed(haze, rgb(252, 252, 252), 0.35 + 0.5 * chance(45, puff));
        picture.fillEllipse({column(bearing), horizon - height * perDegree}, half, half * 0.34, white);
    }
    const Colour hills = mixed(haze, rgb(64, 96, 72), 0.72);
    const Colour houses = mixed(haze, rgb(150, 150, 152), 0.6);
    constexpr double step = 0.25; // degrees, the same ones whichever way the camera looks
    for (double at = std::floor((middle - reach) / step) * step; at < middle + reach; at += step) {
        const auto slice = [&](double from, double to, Colour colour) {
            const Point shape[] = {{column(at), horizon - from * perDegree},
                                   {column(at + step), horizon - to * perDegree},
                                   {column(at + step), horizon + 1},
                                   {column(at), horizon + 1}};
            picture.fillPolygon(shape, colour);
        };
        slice(ridge(at), ridge(at + step), hills);
        const auto house = static_cast<std::int64_t>(std::floor(std::remainder(at, 360.0) * 1.25));
        const double roof = 0.6 + 1.5 * chance(31, house) + (chance(32, house) > 0.9 ? 1.6 : 0);
        slice(roof, roof, houses);
    }
}

/// The places where pieces of the way meet, from the nearest to the last that is seen.
std::vector<double> visibleCuts(const Route& route, const RoadView& view)
{
    std::vector<double> cuts{RoadView::nearest};
    while (cuts.back() < farthest) // fine near by, coarse far away
        cuts.push_back(cuts.back() + std::max(1.5, cuts.back() * 0.085));
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
    const auto depth = [&](std::size_t cut) { return view.depth({view.alongAt(cuts[cut]), 0, 0}); };
    while (last + 1 < cuts.size() && cuts[last] < sight && depth(last) >= depth(last - 1))
        ++last;
    cuts.resize(last + 1);
    return cuts;
}

} // namespace

Scene::Scene(const Drive& drive, Look look, int width, int height)
    : m_drive(drive), m_look(look), m_width(width), m_height(height), m_focalLength(focalShare * width)
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
    drawBackdrop(picture, view);
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
        } else if (std::abs(from - tunnel->from) < 0.01 || std::abs(from - tunnel->to) < 0.01) {
            drawPortal(view, from);
        }
        if ((light - from) * (light - to) <= 0)
            drawTrafficLight(view, light, seconds >= m_drive.greenTime());
        for (; vehicle != vehicles.end() && view.aheadOf(vehicle->distance) >= cuts[i]; ++vehicle) {
            if (view.aheadOf(vehicle->distance) < cuts.back())
                drawVehicle(view, *vehicle);
        }
    }
}

/// What the camera sees of its own car: the bonnet's edge, or the rear window's frame.
void Scene::drawOwnCar(Canvas& picture) const
{
    const bool ahead = m_look == Look::Ahead;
    for (const auto& [top, colour] : {std::pair(0.905, ahead ? rgb(66, 72, 80) : rgb(40, 41, 43)),
                                      std::pair(0.912, ahead ? rgb(38, 42, 48) : rgb(30, 31, 33))})
        picture.fillEllipse({0.5 * m_width, (top + 0.3) * m_height}, 0.9 * m_width, 0.3 * m_height, colour);
}

} // namespace marvo::demo
