// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/Traffic.h"

#include "demo/Noise.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace marvo::demo {

namespace {

constexpr double sight = 260;     // metres within which there are other vehicles
constexpr double overtakes = -14; // seconds from the emergency braking
constexpr double cameraToNose = 1.9;

double smoothStep(double from, double to, double at)
{
    const double share = std::clamp((at - from) / (to - from), 0.0, 1.0);
    return share * share * (3 - 2 * share);
}

double usualGap(const Motion& own) { return 4.5 + 1.3 * own.speed + 2 * smoothNoise(72, own.distance / 130); }

/// Bumper to bumper between us and the car that cuts in; negative while it is still beside us.
double cutInGap(double since, double usual)
{
    if (since < -6)
        return std::lerp(-20.0, 22.0, (since - overtakes) / (-6 - overtakes));
    if (since < 0)
        return std::lerp(22.0, 15.0, (since + 6) / 6);
    if (since < 2)
        return std::lerp(15.0, 3.2, 1 - (1 - since / 2) * (1 - since / 2));
    return std::lerp(3.2, usual, smoothStep(2, 9, since));
}

Colour paintOf(std::uint64_t seed, std::int64_t index)
{
    static constexpr std::array paints{rgb(232, 232, 230), rgb(170, 174, 178), rgb(96, 100, 106),
                                       rgb(38, 40, 44),    rgb(44, 62, 104),   rgb(140, 36, 36)};
    return paints[mixedBits(seed, index) % paints.size()];
}

// Of a car, in metres; where the roof begins and ends as shares of the length from the rear.
constexpr double halfWidth = 0.91;
constexpr double belt = 0.88; // where the windows begin
constexpr double height = 1.46;
constexpr double roof = 0.8; // its share of the width
constexpr double roofBegin = 0.16;
constexpr double roofEnd = 0.72;

} // namespace

std::vector<Vehicle> trafficAt(const Drive& drive, double seconds)
{
    const Motion own = drive.at(seconds);
    const double since = seconds - drive.brakingTime();
    const bool braking = own.acceleration < -0.7 || own.speed < 0.3;
    std::vector<Vehicle> vehicles;
    const auto addOurWay = [&](double gap, double aside, Colour paint, bool brakes) {
        const double middle = own.distance + cameraToNose + gap + Vehicle::length / 2;
        vehicles.push_back({middle, aside, Travel::OurWay, paint, brakes});
    };
    if (seconds < drive.duration() + 30) {
        // The car that was ahead at first drives away while the other one cuts in.
        addOurWay(usualGap(own) + 60 * smoothStep(-16, -4, since), 0, rgb(196, 200, 204),
                  braking && since < -4);
        if (since >= overtakes)
            addOurWay(cutInGap(since, usualGap(own)), laneWidth * (1 - smoothStep(-4.5, -1.5, since)),
                      rgb(226, 128, 40), (since > -0.6 && since < 2.5) || (since > 4 && braking));
        addOurWay(-2 * Vehicle::length - usualGap(drive.at(seconds + 1.2)) - 3, 0, rgb(120, 126, 134), false);
        // In the lanes beside ours some drive a little faster, some slower; they stand when we stand.
        for (std::int64_t i = -4; i < 6; ++i) {
            const bool right = i % 2 != 0;
            const double drift = 14 * smoothNoise(right ? 92 : 91, own.distance / 260 + double(i) * 3.7);
            const double gap = static_cast<double>(i) * 23 + 17 + drift;
            if (right && std::abs(since) < 18 && std::abs(gap) < 45)
                continue; // the car that cuts in needs the lane
            addOurWay(gap, right ? laneWidth : -laneWidth, paintOf(81, i), braking);
        }
    }
    constexpr double spacing = 58;
    for (std::uint64_t lane = 0; lane < 2; ++lane) {
        const double moved = seconds * (13.5 - static_cast<double>(lane));
        const auto first = static_cast<std::int64_t>((own.distance - sight + moved) / spacing);
        const auto last = static_cast<std::int64_t>((own.distance + sight + moved) / spacing);
        for (std::int64_t i = first; i <= last; ++i) {
            const double at = (static_cast<double>(i) + 0.6 * chance(92 + lane, i)) * spacing - moved;
            if (chance(90 + lane, i) < 0.35 || drive.route().tunnelAt(at) != nullptr)
                continue;
            vehicles.push_back({at, -laneWidth * (2.1 + static_cast<double>(lane)), Travel::Towards,
                                paintOf(96 + lane, i), false});
        }
    }
    return vehicles;
}

void drawVehicle(RoadView& view, const Vehicle& vehicle)
{
    constexpr Colour glass = rgb(38, 46, 54);
    constexpr Colour tyre = rgb(26, 27, 28);
    using Paint = RoadView::Paint;
    const double ahead = view.aheadOf(vehicle.distance);
    const double near = view.alongAt(ahead - Vehicle::length / 2);
    const double far = view.alongAt(ahead + Vehicle::length / 2);
    if (ahead - Vehicle::length / 2 < RoadView::nearest)
        return;
    // Its rear is seen when it drives the way the camera looks.
    const bool rear = (vehicle.travel == Travel::OurWay) != (view.camera().look == Look::Back);
    const auto across = [&](double share) { return vehicle.aside + share * halfWidth; };
    const auto along = [&](double fromRear) { return std::lerp(near, far, rear ? fromRear : 1 - fromRear); };
    view.rect({near, across(-1.15), 0}, {far, across(1.15), 0}, rgb(58, 59, 62));

    // The side towards us: body, windows, wheels.
    const double hand = vehicle.aside > 0 ? -1 : 1;
    view.rect({near, across(hand), 0.3}, {far, across(hand), belt}, brightened(vehicle.paint, 0.82));
    const auto cabin = [&](double low, double high, double inset, Colour colour) {
        view.face({{along(0.05 + inset), across(hand), low},
                   {along(roofEnd + 0.16 - inset), across(hand), low},
                   {along(roofEnd - inset / 2), across(hand * roof), high},
                   {along(roofBegin + inset / 2), across(hand * roof), high}},
                  colour);
    };
    cabin(belt, height, 0, brightened(vehicle.paint, 0.86));
    cabin(belt + 0.04, height - 0.14, 0.06, glass);
    for (const double axle : {0.2, 0.8})
        view.rect({along(axle - 0.07), across(hand), 0}, {along(axle + 0.07), across(hand), 0.6}, tyre);

    // The end towards us: tyres, the slanted part with its window, bumper, plate, lights.
    const auto block = [&](double left, double right, double low, double high, Colour colour,
                           Paint paint = Paint::Daylight) {
        view.rect({near, across(left), low}, {near, across(right), high}, colour, paint);
    };
    block(-0.92, -0.62, 0, 0.4, tyre);
    block(0.62, 0.92, 0, 0.4, tyre);
    const double roofAlong = along(rear ? roofBegin : roofEnd);
    const auto slant = [&](double low, double foot, double high, double top, Colour colour) {
        view.face({{near, across(-foot), low},
                   {near, across(foot), low},
                   {roofAlong, across(top), high},
                   {roofAlong, across(-top), high}},
                  colour);
    };
    slant(belt, 0.98, height, roof, vehicle.paint);
    slant(belt + 0.05, 0.84, height - 0.12, roof - 0.1, glass);
    block(-1, 1, 0.26, belt, vehicle.paint);
    block(-0.28, 0.28, 0.56, 0.68, rgb(236, 236, 230));
    const bool braking = rear && vehicle.braking;
    const Colour light = !rear ? rgb(244, 244, 232) : braking ? rgb(255, 44, 36) : rgb(150, 26, 26);
    for (const double side : {-0.81, 0.81})
        block(side - 0.15, side + 0.15, 0.64, 0.81, light, Paint::Lamp);
    if (braking)
        block(-0.18, 0.18, height - 0.14, height - 0.08, light, Paint::Lamp);
}

} // namespace marvo::demo
