// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "logs/DrivingLog.h"

#include "support/ByteReader.h"
#include "support/FileSource.h"
#include "support/System.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

namespace marvo {

namespace {

constexpr std::size_t headerSize = 12;
constexpr std::size_t enoughPoints = 50'000; // a map draws these without a pause
constexpr double farthestThinning = 640;     // metres; the map treats more than 1,000 as a gap in the route
constexpr double metresPerDegree = 111'195;

double metresBetween(const DecimalPosition& a, const DecimalPosition& b)
{
    const double north = b.latitude - a.latitude;
    const double east = (b.longitude - a.longitude) * std::cos(a.latitude * std::numbers::pi / 180);
    return std::hypot(north, east) * metresPerDegree;
}

/// Leaves out points closer to the previous one than a distance, except at the ends of a gap.
std::vector<DecimalPosition> thinned(const std::vector<DecimalPosition>& way, double metres)
{
    std::vector<DecimalPosition> result;
    for (std::size_t i = 0; i < way.size(); ++i) {
        const bool isEnd = i + 1 == way.size() || metresBetween(way[i], way[i + 1]) > farthestThinning;
        if (isEnd || result.empty() || metresBetween(result.back(), way[i]) >= metres)
            result.push_back(way[i]);
    }
    return result;
}

} // namespace

DrivingLog::DrivingLog(std::string path, const LogDescription& description)
    : m_path(std::move(path)), m_description(&description)
{}

DrivingLog::Reading DrivingLog::read(const std::string& path, const LogDescription& description)
{
    FileSource file(path);
    if (!file.isOpen())
        return {.log = {}, .fault = Fault::CannotOpen, .detail = file.error()};

    std::array<std::byte, headerSize> header;
    if (file.readAt(0, header) < headerSize) {
        return {.log = {},
                .fault = file.error().empty() ? Fault::NoLog : Fault::CannotRead,
                .detail = file.error()};
    }
    const std::shared_ptr<DrivingLog> log(new DrivingLog(path, description));
    log->m_promisedCount = ByteReader(header).littleEndian<std::uint32_t>();
    const std::uint64_t bytesThere = std::max<std::uint64_t>(file.size(), headerSize) - headerSize;
    log->m_recordCount = std::min<std::uint64_t>(log->m_promisedCount, bytesThere / description.recordSize);

    const std::uint64_t size = log->m_recordCount * description.recordSize;
    if (size > availableMemory().value_or(size))
        return {.log = {}, .fault = Fault::NoMemory, .detail = {}};
    log->m_records = makeLargeBuffer(size);
    if (!log->m_records)
        return {.log = {}, .fault = Fault::NoMemory, .detail = {}};
    if (file.readAt(headerSize, {log->m_records.get(), size}) < size) {
        return {.log = {},
                .fault = Fault::CannotRead,
                .detail = file.error().empty() ? "The file was cut while it was being read" : file.error()};
    }
    return {.log = log, .fault = Fault::None, .detail = {}};
}

std::string_view DrivingLog::cellText(std::size_t column, std::uint64_t row, CellBuffer& buffer) const
{
    const char* end = m_description->writeCell(record(row), row, column, buffer.data());
    return {buffer.data(), static_cast<std::size_t>(end - buffer.data())};
}

DecimalPosition DrivingLog::position(std::uint64_t row) const
{
    const auto degrees = [&](std::size_t column) {
        CellBuffer buffer;
        const std::string_view text = cellText(column, row, buffer);
        double value = 0;
        std::from_chars(text.data(), text.data() + text.size(), value);
        return nmeaToDegrees(value);
    };
    return {.latitude = degrees(m_description->latitudeColumn),
            .longitude = degrees(m_description->longitudeColumn)};
}

std::vector<DecimalPosition> DrivingLog::way() const
{
    std::vector<DecimalPosition> all;
    for (std::uint64_t row = 0; row < m_recordCount; ++row) {
        const DecimalPosition point = position(row);
        const bool repeats =
            !all.empty() && all.back().latitude == point.latitude && all.back().longitude == point.longitude;
        if (isKnown(point) && !repeats)
            all.push_back(point);
    }
    if (all.size() <= enoughPoints)
        return all;
    std::vector<DecimalPosition> way;
    for (double metres = 10; metres <= farthestThinning; metres *= 2) {
        way = thinned(all, metres);
        if (way.size() <= enoughPoints)
            break;
    }
    return way;
}

} // namespace marvo
