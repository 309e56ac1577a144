// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "recording/RecordWriting.h"

#include <bit>
#include <concepts>

namespace marvo {

namespace {

template <std::unsigned_integral Number>
void append(std::string& area, Number value)
{
    for (std::size_t i = 0; i < sizeof value; ++i)
        area.push_back(static_cast<char>(value >> (8 * i)));
}

} // namespace

void appendRecord(std::string& area, const _AVI_GSENSOR_DATA_T& reading)
{
    area += "0GDA";
    append(area, static_cast<std::uint64_t>(reading.nTimestamp));
    for (const std::int32_t value : {reading.xAxis, reading.yAxis, reading.zAxis, reading.nTemperature})
        append(area, static_cast<std::uint32_t>(value));
}

void appendRecord(std::string& area, const _AVI_GPS_DATA_T& fix, std::string_view text)
{
    constexpr std::size_t longTrailer = 7;
    const bool hasLongTrailer = fix.KM == '1' || fix.KM == '9';
    const bool needsZero = !hasLongTrailer && (text.empty() || text.back() != '\0');
    area += "0GPS";
    append(area, static_cast<std::uint64_t>(fix.nTimestamp));
    append(area, static_cast<std::uint32_t>(text.size() + (needsZero ? 1 : 0)));
    append(area, static_cast<std::uint32_t>(fix.nQualityIndicator));
    for (const double value : {fix.fLatitude, fix.fLongitude, fix.fSpeed})
        append(area, std::bit_cast<std::uint64_t>(value));
    area.push_back(static_cast<char>(fix.KM));
    area += text;
    area.append(hasLongTrailer ? longTrailer : needsZero ? 1 : 0, '\0');
}

} // namespace marvo
