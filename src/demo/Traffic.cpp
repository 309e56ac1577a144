// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/Traffic.h"

#include "demo/Noise.h"

#include <array>
#include <cmath>

namespace marvo::demo {

namespace {

constexpr double sight = 260;     // metres within which there are other vehicles
constexpr double overtakes = -14; // seconds from the emergency braking
constexpr double ownLength = 4.4; // metres, of our car
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

} // namespace

const VehicleBody& bodyOf(VehicleKind kind)
{
    static constexpr std::array bodies{VehicleBody{4.4, 1.82, 0.88, 1.46, 0.2, 0.16, 0.72},
                                       VehicleBody{5.0, 1.92, 1.0, 1.95, 0.14, 0.03, 0.80},
                                       VehicleBody{10.8, 2.5, 1.3, 3.1, 0.04, 0.0, 1.0}};
    return bodies.at(static_cast<std::size_t>(kind));
}

std::vector<Vehicle> trafficAt(const Drive& drive, double seconds)
{
    const Motion own = drive.at(seconds);
    const double since = seconds - drive.brakingTime();
    const bool braking = own.acceleration < -0.7 || own.speed < 0.3;
    std::vector<Vehicle> vehicles;
    const auto addOurWay = [&](double gap, double aside, VehicleKind kind, Colour paint, bool brakes) {
        const double middle = own.distance + cameraToNose + gap + bodyOf(kind).length / 2;
        vehicles.push_back({middle, aside, kind, Travel::OurWay, paint, brakes});
    };
    if (seconds < drive.duration() + 30) {
        // The car that was ahead at first drives away while the other one cuts in.
        addOurWay(usualGap(own) + 60 * smoothStep(-16, -4, since), 0, VehicleKind::Car, rgb(196, 200, 204),
                  braking && since < -4);
        if (since >= overtakes)
            addOurWay(cutInGap(since, usualGap(own)), laneWidth * (1 - smoothStep(-4.5, -1.5, since)),
                      VehicleKind::Car, rgb(226, 128, 40),
                      (since > -0.6 && since < 2.5) || (since > 4 && braking));
        addOurWay(-2 * ownLength - usualGap(drive.at(seconds + 1.2)) - 3, 0, VehicleKind::Car,
                  rgb(120, 126, 134), false);
        // In the lanes beside ours some drive a little faster, some slower; they stand when we stand.
        for (std::int64_t i = -4; i < 6; ++i) {
            const bool right = i % 2 != 0;
            const double drift = 14 * smoothNoise(right ? 92 : 91, own.distance / 260 + double(i) * 3.7);
            const double gap = static_cast<double>(i) * 23 + 17 + drift;
            if (right && std::abs(since) < 18 && std::abs(gap) < 45)
                continue; // the car that cuts in needs the lane
            const VehicleKind kind = i == 3    ? VehicleKind::Bus
                                     : i == -2 ? VehicleKind::Van
                                               : VehicleKind::Car;
            const Colour paint = kind == VehicleKind::Bus ? rgb(38, 92, 176) : paintOf(81, i);
            addOurWay(gap, right ? laneWidth : -laneWidth, kind, paint, braking);
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
            const auto kind = chance(94 + lane, i) < 0.12 ? VehicleKind::Bus : VehicleKind::Car;
            vehicles.push_back({at, -laneWidth * (2.1 + static_cast<double>(lane)), kind, Travel::Towards,
                                paintOf(96 + lane, i), false});
        }
    }
    return vehicles;
}

} // namespace marvo::demo
