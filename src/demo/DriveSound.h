// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "demo/Drive.h"

#include <cstdint>
#include <span>
#include <vector>

namespace marvo::demo {

/// What the camera's microphone hears in the car: the engine through its gears, wind and tyres with the
/// speed, squealing tyres and a thump at the emergency braking, the street when the car is parked.
class DriveSound
{
public:
    DriveSound(const Drive& drive, int rateHz);

    /// Fills 16-bit samples; `first` is the first one's number from the drive's start. The division into
    /// calls does not change the sound.
    void fill(std::span<std::int16_t> samples, std::int64_t first) const;

private:
    struct Step ///< loudness and pitch at a twentieth of a second
    {
        double enginePhase = 0; ///< turns of the firing frequency since the start
        double engine = 0;      ///< loudness, full scale 1
        double wind = 0;
        double squeal = 0;
    };

    int m_rateHz;
    double m_thumpTime;
    std::vector<Step> m_steps;
    std::vector<float> m_noise; ///< a loop of soft noise
    std::vector<float> m_sine;
};

} // namespace marvo::demo
