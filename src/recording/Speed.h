// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "recording/SampleRecords.h"

namespace marvo {

/// The unit that the user has chosen for speeds.
enum class SpeedUnit { Kilometres, Miles };

/// The speed that is shown for a fix, with its fraction, in the unit shown.
double shownSpeed(const _AVI_GPS_DATA_T& sample, SpeedUnit unit);

} // namespace marvo
