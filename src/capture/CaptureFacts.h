// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "recording/Positions.h"
#include "recording/SampleRecords.h"
#include "recording/Speed.h"

#include <cstdint>
#include <optional>
#include <string>

namespace marvo {

class MRVBlackBoxData;

/// What is known of the moment that a captured picture shows. What is not known is absent.
struct CaptureFacts
{
    std::string recording;            ///< the file's name; empty unless it is plain ASCII
    std::optional<_SYSTEMTIME> taken; ///< by the camera's clock
    std::optional<_SYSTEMTIME> utc;   ///< by the satellites
    std::optional<DecimalPosition> place;
    std::optional<double> speed; ///< as the data panel shows it, in speedUnit an hour
    SpeedUnit speedUnit = SpeedUnit::Kilometres;
};

/// The facts for a play position (0 to 1) and time of the recording whose data these are. Place and speed are
/// left out while the camera had no reception.
CaptureFacts captureFactsAt(const std::string& mediaPath, double position, std::int64_t timeMs,
                            const MRVBlackBoxData& data, SpeedUnit unit);

} // namespace marvo
