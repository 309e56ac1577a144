// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "recording/Positions.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace marvo {

double nmeaToDegrees(double value)
{
    using Limits = std::numeric_limits<std::int32_t>;
    const double hundredths = value / 100;
    if (!std::isfinite(hundredths))
        return hundredths;
    const double degrees =
        std::clamp<double>(std::trunc(hundredths), Limits::min(), Limits::max()); // what 32 bits hold
    return (hundredths - degrees) * 100 / 60 + degrees;
}

std::size_t indexOfPosition(double position, std::size_t n)
{
    const double product = position * static_cast<double>(n);
    // Written so that not a number takes the last entry as well.
    if (n == 0 || (product > -1 && product < 1))
        return 0;
    if (!(product >= 1 && product < static_cast<double>(n)))
        return n - 1;
    return std::min(static_cast<std::size_t>(product), n - 1);
}

Hemispheres hemispheresAt(const std::vector<std::shared_ptr<const MRVGpsData>>& snapshots, std::size_t index)
{
    if (snapshots.empty())
        return {};
    const auto tellsNothing = [](const std::shared_ptr<const MRVGpsData>& snapshot) {
        return snapshot->NS == 'N' && snapshot->EW == 'E' && snapshot->Latitude == 0 &&
               snapshot->Longitude == 0;
    };
    // Sentences keep what those before them told, so the first snapshot with a place ends all that have none.
    auto snapshot = snapshots.begin() + static_cast<std::ptrdiff_t>(std::min(index, snapshots.size() - 1));
    if (tellsNothing(*snapshot))
        snapshot = std::partition_point(snapshot, snapshots.end(), tellsNothing);
    const MRVGpsData& state = snapshot == snapshots.end() ? *snapshots.back() : **snapshot;
    return {.south = state.NS != 'N', .west = state.EW != 'E'};
}

DecimalPosition decimalPosition(const _AVI_GPS_DATA_T& sample, Hemispheres hemispheres)
{
    const double latitude = std::abs(sample.fLatitude);
    const double longitude = std::abs(sample.fLongitude);
    return {.latitude = nmeaToDegrees(hemispheres.south ? -latitude : latitude),
            .longitude = nmeaToDegrees(hemispheres.west ? -longitude : longitude)};
}

bool isOnEarth(DecimalPosition position)
{
    return std::abs(position.latitude) <= 90 && std::abs(position.longitude) <= 180 &&
           (position.latitude != 0 || position.longitude != 0);
}

} // namespace marvo
