// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/Traffic.h"

#include "demo/Noise.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace marvo::demo {

namespace {

constexpr double sight = 260;          // metres within which there are other vehicles
constexpr double overtakesBefore = 14; // seconds before the emergency braking
constexpr double turnsInBefore = 4.5;
constexpr double isInLaneBefore = 1.5;

double smoothStep(double from, double to, double at)
{
    const double share = std::clamp((at - from) / (to - from), 0.0, 1.0);
    return share * share * (3 - 2 * share);
}

double usualGap(const Drive& drive, double seconds)
{
    const Motion motion = drive.at(seconds);
    return 4.5 + 1.3 * motion.speed + 2 * smoothNoise(72, motion.distance / 130);
}

/// Bumper to bumper between us and the car that cuts in; negative while it is still coming up beside us.
double cutInGap(const Drive& drive, double seconds)
{
    const double since = seconds - drive.brakingTime();
    if (since < -6)
        return std::lerp(-20.0, 22.0, (since + overtakesBefore) / (overtakesBefore - 6));
    if (since < 0)
        return std::lerp(22.0, 15.0, (since + 6) / 6);
    if (since < 2)
        return std::lerp(15.0, 3.2, 1 - (1 - since / 2) * (1 - since / 2));
    return std::lerp(3.2, usualGap(drive, seconds), smoothStep(2, 9, since));
}

Colour paintOf(std::uint64_t seed, std::int64_t index)
{
    // What one sees on the roads: white, silver, grey and black, seldom a colour.
    static const std::array paints{rgb(232, 232, 230), rgb(220, 222, 224), rgb(170, 174, 178),
                                   rgb(96, 100, 106),  rgb(38, 40, 44),    rgb(44, 62, 104),
                                   rgb(140, 36, 36),   rgb(206, 208, 206)};
    return paints[mixedBits(seed, index) % paints.size()];
}

class Surroundings
{
public:
    Surroundings(const Drive& drive, double seconds)
        : m_drive(drive), m_seconds(seconds), m_own(drive.at(seconds))
    {}

    std::vector<Vehicle> vehicles()
    {
        if (m_seconds < m_drive.duration() + 30) {
            addAhead();
            addBehind();
            addBeside();
        }
        addTowards();
        return std::move(m_vehicles);
    }

private:
    double nose() const { return m_own.distance + cameraToNose; }

    void addOurWay(double gap, double aside, VehicleKind kind, Colour paint, bool braking)
    {
        m_vehicles.push_back(
            {nose() + gap + vehicleLength(kind) / 2, aside, kind, Travel::OurWay, paint, braking});
    }

    void addAhead()
    {
        const double since = m_seconds - m_drive.brakingTime();
        const bool braking = m_own.acceleration < -0.7 || m_own.speed < 0.3;
        // The car that was ahead at first drives away while the other one comes between.
        const double leaves = 60 * smoothStep(-16, -4, since);
        addOurWay(usualGap(m_drive, m_seconds) + leaves, 0, VehicleKind::Car, rgb(196, 200, 204),
                  braking && since < -4);
        if (since < -overtakesBefore)
            return;
        const double aside = laneWidth * (1 - smoothStep(-turnsInBefore, -isInLaneBefore, since));
        addOurWay(cutInGap(m_drive, m_seconds), aside, VehicleKind::Car, rgb(226, 128, 40),
                  (since > -0.6 && since < 2.5) || (since > 4 && braking));
    }

    void addBehind()
    {
        const double gap = usualGap(m_drive, m_seconds + 1.2) + 3;
        addOurWay(-ownLength - gap - vehicleLength(VehicleKind::Car), 0, VehicleKind::Car, rgb(120, 126, 134),
                  false);
    }

    /// In the lanes beside ours some drive a little faster, some slower; when we stand they stand.
    void addBeside()
    {
        const double travelled = m_own.distance;
        const double since = m_seconds - m_drive.brakingTime();
        for (std::int64_t i = -2; i <= 2; ++i) {
            for (const double lane : {-laneWidth, laneWidth}) {
                const std::uint64_t seed = lane < 0 ? 81 : 82;
                const double drift =
                    14 * smoothNoise(seed + 10, travelled / 260 + static_cast<double>(i) * 7.3);
                const double gap = static_cast<double>(i) * 46 + 17 + drift;
                // Nobody where the car that cuts in needs the lane.
                if (lane > 0 && std::abs(since) < overtakesBefore + 4 && std::abs(gap) < 45)
                    continue;
                const auto kind = i == 1 && lane > 0    ? VehicleKind::Bus
                                  : i == -1 && lane < 0 ? VehicleKind::Van
                                                        : VehicleKind::Car;
                const Colour paint = kind == VehicleKind::Bus ? rgb(38, 92, 176) : paintOf(seed, i);
                addOurWay(gap, lane, kind, paint, m_own.acceleration < -0.7 || m_own.speed < 0.3);
            }
        }
    }

    void addTowards()
    {
        constexpr double spacing = 58;
        constexpr double speed = 13.5;
        for (std::uint64_t lane = 0; lane < 2; ++lane) {
            const double moved = speed * m_seconds * (1 - 0.08 * static_cast<double>(lane));
            const auto first = static_cast<std::int64_t>((m_own.distance - sight + moved) / spacing);
            const auto last = static_cast<std::int64_t>((m_own.distance + sight + moved) / spacing);
            for (std::int64_t i = first; i <= last; ++i) {
                if (chance(90 + lane, i) < 0.35)
                    continue;
                const double at = (static_cast<double>(i) + 0.6 * chance(92 + lane, i)) * spacing - moved;
                if (m_drive.route().tunnelAt(at) != nullptr)
                    continue;
                const bool bus = chance(94 + lane, i) < 0.12;
                m_vehicles.push_back({at, -laneWidth * (2.1 + static_cast<double>(lane)),
                                      bus ? VehicleKind::Bus : VehicleKind::Car, Travel::Towards,
                                      bus ? rgb(58, 140, 70) : paintOf(96 + lane, i), false});
            }
        }
    }

    const Drive& m_drive;
    double m_seconds;
    Motion m_own;
    std::vector<Vehicle> m_vehicles;
};

} // namespace

double vehicleLength(VehicleKind kind)
{
    switch (kind) {
    case VehicleKind::Car:
        return 4.4;
    case VehicleKind::Van:
        return 5.0;
    case VehicleKind::Bus:
        return 10.8;
    }
    return 0;
}

std::vector<Vehicle> trafficAt(const Drive& drive, double seconds)
{
    return Surroundings(drive, seconds).vehicles();
}

} // namespace marvo::demo
