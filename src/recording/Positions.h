// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "recording/MRVGpsData.h"
#include "recording/SampleRecords.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace marvo {

/// Decimal degrees of an NMEA 0183 degrees-and-minutes number (dddmm.mmmm), the sign kept: 3733.1234 gives
/// 37.552057. Infinite and not-a-number stay what they are.
double nmeaToDegrees(double value);

/// The index among n entries for a play position (0 to 1): position x n, truncated toward zero. Any product
/// that is no index, NaN included, gives the last entry. 0 when there are no entries.
std::size_t indexOfPosition(double position, std::size_t n);

/// Which halves of the globe a position lies in; north and east where no sentence tells.
struct Hemispheres
{
    bool south = false;
    bool west = false;

    bool operator==(const Hemispheres&) const = default;
};

/// The hemispheres for the GPS sample of this index: those of the snapshot of the same index, or of the last
/// snapshot when the list ends before it. Before the first snapshot that a sentence has told of a place, that
/// snapshot's count: a drive does not begin on another continent. A recording without any lies north and
/// east, whatever was played before it.
Hemispheres hemispheresAt(const std::vector<std::shared_ptr<const MRVGpsData>>& snapshots, std::size_t index);

/// A place in decimal degrees, north and east positive.
struct DecimalPosition
{
    double latitude = 0;
    double longitude = 0;
};

/// Where a GPS sample lies: the magnitudes of its own numbers, the signs of the hemispheres.
DecimalPosition decimalPosition(const _AVI_GPS_DATA_T& sample, Hemispheres hemispheres);

/// False outside the earth's degrees, for what is no number, and for the 0/0 that a receiver without a fix
/// writes.
bool isOnEarth(DecimalPosition position);

} // namespace marvo
