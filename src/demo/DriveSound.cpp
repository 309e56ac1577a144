// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/DriveSound.h"

#include "demo/Noise.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace marvo::demo {

namespace {

constexpr int stepsPerSecond = 20;
constexpr std::size_t sineSize = 4096;
constexpr std::size_t noiseSize = 1 << 17;

/// Revolutions a minute at a speed in m/s, through the gears of a small car.
double engineSpeed(double speed)
{
    static constexpr std::array gears{0.0, 4.5, 8.5, 12.5, 30.0};
    if (speed < 1)
        return 780 + 300 * speed;
    std::size_t gear = 0;
    while (gear + 2 < gears.size() && speed >= gears[gear + 1])
        ++gear;
    const double share = (speed - gears[gear]) / (gears[gear + 1] - gears[gear]);
    return std::lerp(gear == 0 ? 900.0 : 1350.0, 2350.0, share);
}

} // namespace

DriveSound::DriveSound(const Drive& drive, int rateHz)
    : m_rateHz(rateHz), m_thumpTime(drive.brakingTime() + 0.5), m_noise(noiseSize), m_sine(sineSize)
{
    for (std::size_t i = 0; i < sineSize; ++i)
        m_sine[i] = static_cast<float>(std::sin(2 * std::numbers::pi * static_cast<double>(i) / sineSize));
    // White noise through a low-pass filter; one round to warm it up makes the loop's ends meet.
    float low = 0;
    for (std::size_t i = 0; i < 2 * noiseSize; ++i) {
        low +=
            0.16F * (static_cast<float>(2 * chance(441, static_cast<std::int64_t>(i % noiseSize)) - 1) - low);
        m_noise[i % noiseSize] = low;
    }

    double phase = 0;
    double revolutions = 780;
    const auto count = static_cast<int>(drive.duration() * stepsPerSecond);
    for (int i = 0; i <= count; ++i) {
        const Motion motion = drive.at(static_cast<double>(i) / stepsPerSecond);
        revolutions += 0.25 * (engineSpeed(motion.speed) - revolutions);
        const bool tunnel = drive.route().tunnelAt(motion.distance) != nullptr;
        const double pushing = std::clamp(motion.acceleration / 2, 0.0, 1.0);
        Step step;
        step.enginePhase = phase;
        step.engine = (0.035 + 0.05 * pushing) * (tunnel ? 1.5 : 1);
        step.wind = (0.01 + 0.16 * std::pow(motion.speed / 17, 1.6)) * (tunnel ? 1.7 : 1);
        step.squeal = motion.acceleration < -5 && motion.speed > 1 ? 0.10 : 0;
        m_steps.push_back(step);
        phase += revolutions / 60 * 2 / stepsPerSecond; // four cylinders fire twice a turn
    }
    // The engine stops; the street remains.
    m_steps.push_back({phase, 0, 0.02, 0});
}

void DriveSound::fill(std::span<std::int16_t> samples, std::int64_t first) const
{
    const auto sine = [&](double turns) {
        return m_sine[static_cast<std::size_t>((turns - std::floor(turns)) * sineSize) % sineSize];
    };
    for (std::int16_t& sample : samples) {
        const double seconds = static_cast<double>(first) / m_rateHz;
        const double at = std::clamp(seconds * stepsPerSecond, 0.0, static_cast<double>(m_steps.size() - 1));
        const auto index = std::min(static_cast<std::size_t>(at), m_steps.size() - 2);
        const Step& a = m_steps[index];
        const Step& b = m_steps[index + 1];
        const double share = at - static_cast<double>(index);
        const double phase = a.enginePhase + share * (b.enginePhase - a.enginePhase);
        const double engine = a.engine + share * (b.engine - a.engine);
        const double wind = a.wind + share * (b.wind - a.wind);
        const auto turn = static_cast<std::size_t>(first);

        double value = wind * m_noise[turn % noiseSize] * 2.2;
        value += engine *
                 (sine(phase) + 0.55 * sine(phase * 0.5) + 0.35 * sine(phase * 2) + 0.15 * sine(phase * 3));
        if (a.squeal > 0)
            value += a.squeal * sine(seconds * 930) * (0.6 + m_noise[turn * 3 % noiseSize]);
        const double since = seconds - m_thumpTime;
        if (since > 0 && since < 0.6)
            value += 0.5 * std::exp(-since * 11) * (sine(since * 64) + 0.8 * m_noise[turn * 7 % noiseSize]);
        sample = static_cast<std::int16_t>(std::clamp(value, -1.0, 1.0) * 32'000);
        ++first;
    }
}

} // namespace marvo::demo
