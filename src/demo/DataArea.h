// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "demo/LittleEndian.h"
#include "recording/SampleRecords.h"

#include <span>
#include <string>
#include <variant>
#include <vector>

namespace marvo::demo {

/// A GPS fix as the camera stores it: the header, and the receiver's sentences of that second, each ended by
/// CR LF. The header's dwExtLength is not used: it is worked out from the text.
struct GpsRecord
{
    _AVI_GPS_DATA_T header;
    std::string nmea; ///< at most nmeaLimit bytes for a reader to take it
};

/// A reader holds 512 bytes; the writer may add up to 6 of its own to keep readers in step.
inline constexpr std::size_t nmeaLimit = 506;

using DataRecord = std::variant<_AVI_GSENSOR_DATA_T, GpsRecord>;

/// How a reader's walk over the data area ends.
enum class DataAreaEnd {
    EndOfFile, ///< one chunk of its true size: the budget is not used up, the walk runs on to the file's end
    BudgetZero ///< the budget comes out at exactly 0 with the last record: two chunks, see DataArea.cpp
};

/// The camera's data area: one or two whole "JUNK" chunks with their headers, an even number of bytes. Put
/// where the top level of the AVI file is, it keeps every RIFF reader in step. No records: one empty chunk.
Bytes dataAreaChunks(std::span<const DataRecord> records, DataAreaEnd end = DataAreaEnd::EndOfFile);

} // namespace marvo::demo
