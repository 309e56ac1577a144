// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <cstdint>

namespace marvo::demo {

/// Well-mixed bits of two numbers (the finaliser of SplitMix64): chance that is the same every time, wherever
/// one starts to ask.
constexpr std::uint64_t mixedBits(std::uint64_t seed, std::int64_t index)
{
    std::uint64_t z = seed * 0x9E3779B97F4A7C15U + static_cast<std::uint64_t>(index) * 0xD1B54A32D192ED03U;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
    return z ^ (z >> 31);
}

/// From 0 up to but not including 1.
constexpr double chance(std::uint64_t seed, std::int64_t index)
{
    return static_cast<double>(mixedBits(seed, index) >> 11) * 0x1p-53;
}

/// From -1 to 1, running smoothly from one whole number to the next.
inline double smoothNoise(std::uint64_t seed, double at)
{
    const double floor = std::floor(at);
    const double share = at - floor;
    const double weight = share * share * (3 - 2 * share);
    const auto index = static_cast<std::int64_t>(floor);
    return 2 * (chance(seed, index) * (1 - weight) + chance(seed, index + 1) * weight) - 1;
}

} // namespace marvo::demo
