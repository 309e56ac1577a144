// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "demo/DataArea.h"
#include "demo/Drive.h"
#include "demo/LittleEndian.h"

#include <string_view>
#include <vector>

namespace marvo::demo {

inline constexpr int readingsPerSecond = 10;

/// The sensor's reading at a tenth of a second of the drive, in 1/256 g: x to the right, y forwards, z
/// upwards with 1 g at rest, each with the noise of road and engine. nTimestamp is the drive's clock.
_AVI_GSENSOR_DATA_T readingAt(const Drive& drive, int tenth);

/// The camera's records of some seconds of the drive: for each second its readings, then the fix that the
/// camera got for that second and stored with the second's last reading, marked KM.
std::vector<DataRecord> driveRecords(const Drive& drive, int firstSecond, int seconds, unsigned char marker);

/// Marks a log as a demo's: in its header at offset 4, which readers ignore.
inline constexpr std::string_view demoLogMark = "MARVOdem";

/// The driving log of the whole drive, one record every five seconds; the layout is in DriveData.cpp.
Bytes drivingLog(const Drive& drive);

} // namespace marvo::demo
