// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/Drive.h"

#include "demo/Noise.h"

#include <algorithm>
#include <cmath>

namespace marvo::demo {

namespace {

constexpr int stepsPerSecond = 20;
constexpr double waitAtStart = 3;          // seconds before setting off
constexpr double waitAtLight = 9;          // seconds at the red light
constexpr double standingAtEnd = 4;        // seconds between standing and the engine's end
constexpr double openRoadSpeed = 16.4;     // m/s
constexpr double tunnelSpeed = 17.6;       // m/s
constexpr double comfortableBraking = 1.9; // m/s²
constexpr double comfortableStart = 1.7;   // m/s²
constexpr double sidewaysComfort = 2.6;    // m/s²
constexpr double emergencyBraking = 8.3;   // m/s²
constexpr double emergencySeconds = 1.4;

/// The highest speed at each metre that still allows the speed limits of every bend and of the stop.
std::vector<double> speedLimits(const Route& route, double stop)
{
    const auto count = static_cast<std::size_t>(std::min(stop, route.length())) + 1;
    std::vector<double> limits(count);
    for (std::size_t i = 0; i < count; ++i) {
        const auto s = static_cast<double>(i);
        const double open =
            route.tunnelAt(s) != nullptr ? tunnelSpeed : openRoadSpeed + 0.8 * smoothNoise(71, s / 90);
        const double bend = std::sqrt(sidewaysComfort / std::max(std::abs(route.curvature(s)), 1e-4));
        limits[i] = std::min(open, bend);
    }
    limits.back() = 0;
    for (std::size_t i = count - 1; i-- > 0;)
        limits[i] = std::min(limits[i], std::sqrt(limits[i + 1] * limits[i + 1] + 2 * comfortableBraking));
    return limits;
}

double limitAt(const std::vector<double>& limits, double distance)
{
    const auto index = static_cast<std::size_t>(std::max(distance, 0.0));
    if (index + 1 >= limits.size())
        return 0;
    return std::lerp(limits[index], limits[index + 1], distance - static_cast<double>(index));
}

} // namespace

Drive::Drive()
{
    constexpr double step = 1.0 / stepsPerSecond;
    const std::vector<double> toLight = speedLimits(m_route, m_route.trafficLight());
    const std::vector<double> toEnd = speedLimits(m_route, m_route.length() - 8);
    constexpr double endless = 1e9;

    Motion now;
    now.distance = 4;
    double waiting = waitAtStart; // seconds still to stand
    double emergency = endless;   // seconds since the emergency braking began
    bool lightPassed = false;
    for (double time = 0; time < 900; time += step) {
        m_motion.push_back(now);
        if (m_brakingTime == 0 && now.distance >= m_route.brakingPoint()) {
            m_brakingTime = time;
            emergency = 0;
        }
        if (waiting > 0) {
            waiting -= step;
            if (waiting <= 0 && now.distance > m_route.trafficLight() - 10) {
                lightPassed = true;
                m_greenTime = time - 1;
            }
        }
        const std::vector<double>& limits = lightPassed ? toEnd : toLight;
        double wanted = (limitAt(limits, now.distance + now.speed * 0.3) - now.speed) / 0.6;
        wanted = std::clamp(wanted, -1.6 * comfortableBraking, comfortableStart * (1 - now.speed / 32));
        if (waiting > 0) {
            wanted = 0;
        } else if (emergency < emergencySeconds) {
            wanted = -emergencyBraking;
        } else if (emergency < emergencySeconds + 1.6) {
            wanted = 0.2; // the driver's reaction
        }
        emergency += step;

        // The body of the car follows pedal and brake with a delay.
        const double following = wanted < -4 || now.acceleration < -4 ? 0.35 : 0.12;
        now.acceleration += (wanted - now.acceleration) * following;
        now.speed = std::max(0.0, now.speed + now.acceleration * step);
        now.distance += now.speed * step;
        now.lateral = now.speed * now.speed * m_route.curvature(now.distance);

        const double stop = static_cast<double>(limits.size() - 1);
        if (waiting <= 0 && time > 10 && (now.speed < 0.12 || now.distance > stop) &&
            now.distance > stop - 6) {
            now.speed = now.acceleration = now.lateral = 0;
            if (lightPassed) {
                m_motion.insert(m_motion.end(), static_cast<std::size_t>(standingAtEnd * stepsPerSecond),
                                now);
                return;
            }
            waiting = waitAtLight;
        }
    }
}

double Drive::duration() const { return static_cast<double>(m_motion.size() - 1) / stepsPerSecond; }

double Drive::kerbside(double distance) const
{
    const double share = std::clamp((distance - m_route.length() + 75) / 60, 0.0, 1.0);
    return 3.9 * share * share * (3 - 2 * share);
}

Motion Drive::at(double seconds) const
{
    const double steps = std::clamp(seconds * stepsPerSecond, 0.0, static_cast<double>(m_motion.size() - 1));
    const auto index = static_cast<std::size_t>(steps);
    const Motion& a = m_motion[index];
    const Motion& b = m_motion[std::min(index + 1, m_motion.size() - 1)];
    const double share = steps - static_cast<double>(index);
    return {std::lerp(a.distance, b.distance, share), std::lerp(a.speed, b.speed, share),
            std::lerp(a.acceleration, b.acceleration, share), std::lerp(a.lateral, b.lateral, share)};
}

} // namespace marvo::demo
