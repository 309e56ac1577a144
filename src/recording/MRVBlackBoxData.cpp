// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "recording/MRVBlackBoxData.h"

#include "recording/BlockReader.h"
#include "recording/RecordTags.h"
#include "recording/SentenceSplitting.h"
#include "support/ByteReader.h"
#include "support/FileSource.h"
#include "support/Log.h"
#include "support/System.h"

#include <algorithm>
#include <chrono>
#include <limits>
#include <new>
#include <optional>
#include <utility>

namespace marvo {

namespace {

constexpr std::uint32_t gpsHeaderSize = 41;
constexpr std::uint32_t gSensorRecordSize = 24;
constexpr std::int32_t nmeaTextLimit = 512;
constexpr std::int64_t longTrailerSize = 7;

constexpr Tag riffTag = tagOf("RIFF");
constexpr Tag aviTag = tagOf("AVI ");
constexpr Tag junkTag = tagOf("JUNK");

/// The next four bytes as a tag; none at the end.
std::optional<Tag> readTag(BlockReader& reader)
{
    const auto bytes = reader.ahead(tagSize);
    if (bytes.size() < tagSize)
        return std::nullopt;
    const Tag tag = tagAt(bytes.data());
    reader.advance(tagSize);
    return tag;
}

/// The next four bytes as a little-endian number; none at the end.
std::optional<std::uint32_t> readSize(BlockReader& reader)
{
    ByteReader bytes(reader.ahead(sizeof(std::uint32_t)));
    const auto size = bytes.littleEndian<std::uint32_t>();
    if (!bytes.ok())
        return std::nullopt;
    reader.advance(sizeof(std::uint32_t));
    return size;
}

/// Skips to the next record's tag that begins before an offset, and reads it; none at the end.
std::optional<Tag> nextRecordTag(BlockReader& reader, std::uint64_t end)
{
    while (reader.position() < end) {
        const auto bytes = reader.ahead(tagSize);
        if (bytes.size() < tagSize)
            return std::nullopt;
        reader.advance(wordsWithoutTag(bytes) * tagSize);
        if (reader.position() >= end)
            return std::nullopt;
        if (const auto tag = readTag(reader); tag == gpsTag || tag == gSensorTag)
            return tag;
    }
    return std::nullopt;
}

/// Moves to the data area and reads its budget; none when the file has no data area.
std::optional<std::uint32_t> findDataArea(BlockReader& reader)
{
    if (readTag(reader) != riffTag || !readSize(reader) || readTag(reader) != aviTag)
        return std::nullopt;
    for (;;) {
        const auto id = readTag(reader);
        if (!id)
            return std::nullopt;
        const auto size = readSize(reader);
        if (!size || id == junkTag)
            return size;
        reader.skip(*size);
    }
}

// offset  width  field
//      0      8  nTimestamp
//      8      4  dwExtLength
//     12      4  nQualityIndicator
//     16      8  fLatitude
//     24      8  fLongitude
//     32      8  fSpeed
//     40      1  KM
std::optional<_AVI_GPS_DATA_T> gpsHeader(std::span<const std::byte> bytes)
{
    ByteReader reader(bytes);
    _AVI_GPS_DATA_T header;
    header.nTimestamp = reader.littleEndian<std::int64_t>();
    header.dwExtLength = reader.littleEndian<std::int32_t>();
    header.nQualityIndicator = reader.littleEndian<std::int32_t>();
    header.fLatitude = reader.littleEndian<double>();
    header.fLongitude = reader.littleEndian<double>();
    header.fSpeed = reader.littleEndian<double>();
    header.KM = reader.littleEndian<unsigned char>();
    return reader.ok() ? std::optional(header) : std::nullopt;
}

// offset  width  field
//      0      8  nTimestamp
//      8      4  xAxis
//     12      4  yAxis
//     16      4  zAxis
//     20      4  nTemperature
std::optional<_AVI_GSENSOR_DATA_T> gSensorRecord(std::span<const std::byte> bytes)
{
    ByteReader reader(bytes);
    _AVI_GSENSOR_DATA_T record;
    record.nTimestamp = reader.littleEndian<std::int64_t>();
    record.xAxis = reader.littleEndian<std::int32_t>();
    record.yAxis = reader.littleEndian<std::int32_t>();
    record.zAxis = reader.littleEndian<std::int32_t>();
    record.nTemperature = reader.littleEndian<std::int32_t>();
    return reader.ok() ? std::optional(record) : std::nullopt;
}

/// Records are matched in whole tenths of a second.
std::int64_t timeKey(std::int64_t timestampMs) { return timestampMs / 100; }

MRVGSensor inG(const _AVI_GSENSOR_DATA_T& record)
{
    constexpr float gPerUnit = 0.00390625F; // 1/256
    return {.x = static_cast<float>(record.xAxis) * gPerUnit,
            .y = static_cast<float>(record.yAxis) * gPerUnit,
            .z = static_cast<float>(record.zAxis) * gPerUnit};
}

_SYSTEMTIME utcTime(std::int32_t secondsSince1970)
{
    using namespace std::chrono;
    const sys_seconds moment{seconds(secondsSince1970)};
    const auto day = floor<days>(moment);
    const year_month_day date(day);
    const hh_mm_ss time(moment - day);
    _SYSTEMTIME result;
    result.wYear = static_cast<std::uint16_t>(static_cast<int>(date.year()));
    result.wMonth = static_cast<std::uint16_t>(static_cast<unsigned>(date.month()));
    result.wDay = static_cast<std::uint16_t>(static_cast<unsigned>(date.day()));
    result.wHour = static_cast<std::uint16_t>(time.hours().count());
    result.wMinute = static_cast<std::uint16_t>(time.minutes().count());
    result.wSecond = static_cast<std::uint16_t>(time.seconds().count());
    return result;
}

} // namespace

bool MRVBlackBoxData::ExtractStreamInformation(const std::string& path, std::stop_token stop)
{
    FileSource file(path);
    return ExtractStreamInformation(file, std::move(stop)); // a file that is not open is an empty one
}

bool MRVBlackBoxData::ExtractStreamInformation(ByteSource& source, std::stop_token stop)
{
    return extract(source, Reach::WalkOn, std::move(stop));
}

bool MRVBlackBoxData::ExtractDataArea(ByteSource& source, std::stop_token stop)
{
    return extract(source, Reach::DataAreaOnly, std::move(stop));
}

bool MRVBlackBoxData::extract(ByteSource& source, Reach reach, std::stop_token stop)
{
    clear();
    logLine("#############################   START");
    try {
        BlockReader reader(source, stop);
        const std::uint64_t memory = availableMemory().value_or(std::numeric_limits<std::uint64_t>::max());
        return walk(reader, reach, memory / 4) && !stop.stop_requested();
    } catch (const std::bad_alloc&) {
        dropUnpaired();
        return false;
    }
}

/// At most: equal neighbours share a snapshot.
std::uint64_t MRVBlackBoxData::bytesKept() const
{
    constexpr std::size_t blockOverhead = 32; // of a shared object: its counts, and the allocation's own
    return m_gSensors.size() * (sizeof(MRVGSensor) + sizeof(MRVAviGSensorData) + sizeof(MRVAviGpsData)) +
           m_snapshots.size() * (sizeof(MRVGpsData) + blockOverhead + sizeof(m_snapshots[0]));
}

/// After memory ran out in the middle of a reading.
void MRVBlackBoxData::dropUnpaired()
{
    const std::size_t readings = std::min(m_rawReadings.size(), m_gSensors.size());
    m_rawReadings.erase(m_rawReadings.begin() + static_cast<std::ptrdiff_t>(readings), m_rawReadings.end());
}

void MRVBlackBoxData::clear()
{
    m_parser.clear();
    m_snapshots.clear();
    m_gSensors.clear();
    m_times.clear();
    m_timeEvents.clear();
    m_rawReadings.clear();
    m_gpsSamples.clear();
    m_speedDisplay = 0;
    m_includeEvent = 0;
    m_recPark = 0;
    m_lastTimeEventType = 0;
}

bool MRVBlackBoxData::walk(BlockReader& reader, Reach reach, std::uint64_t memory)
{
    const auto size = findDataArea(reader);
    if (!size)
        return false;
    // Records that overrun the budget make it wrap, and the walk goes on to the end of the file.
    std::uint32_t budget = *size;
    const std::uint64_t end =
        reach == Reach::DataAreaOnly ? reader.position() + *size : std::numeric_limits<std::uint64_t>::max();
    while (budget != 0) {
        const auto tag = nextRecordTag(reader, end);
        if (!tag)
            return true;
        const bool whole = tag == gpsTag ? readGpsRecord(reader, budget) : readGSensorRecord(reader, budget);
        if (!whole || std::max(m_gSensors.size(), m_snapshots.size()) > mostEntries || bytesKept() > memory)
            return false;
    }
    return true;
}

bool MRVBlackBoxData::readGpsRecord(BlockReader& reader, std::uint32_t& budget)
{
    const auto header = gpsHeader(reader.ahead(gpsHeaderSize));
    if (!header || header->dwExtLength < 0 || header->dwExtLength > nmeaTextLimit)
        return false;
    reader.advance(gpsHeaderSize);

    // Only text that the file holds is parsed; the walk then ends at the next tag.
    const auto length = static_cast<std::size_t>(header->dwExtLength);
    const auto ahead = reader.ahead(length);
    const auto text = ahead.first(std::min(length, ahead.size()));
    const std::string_view sentences(reinterpret_cast<const char*>(text.data()), text.size());
    ParseNMEA(sentences);
    if (m_fixListener)
        m_fixListener(*header, sentences);

    const bool longTrailer = header->KM == '1' || header->KM == '9';
    reader.skip(header->dwExtLength + (longTrailer ? longTrailerSize : -1));
    std::uint32_t counted = static_cast<std::uint32_t>(header->dwExtLength) + gpsHeaderSize;
    if (const auto lookAhead = reader.ahead(1); !lookAhead.empty() && lookAhead.front() == std::byte{0}) {
        reader.advance(1);
        ++counted;
    }
    pair(*header);
    budget -= counted;
    return true;
}

bool MRVBlackBoxData::readGSensorRecord(BlockReader& reader, std::uint32_t& budget)
{
    const auto bytes = reader.ahead(gSensorRecordSize);
    const auto record = gSensorRecord(bytes);
    if (!record)
        return false;
    m_rawReadings.emplace_back(*record);
    ParseGSensor(bytes);
    reader.advance(gSensorRecordSize);
    budget -= gSensorRecordSize;
    return true;
}

void MRVBlackBoxData::pair(const _AVI_GPS_DATA_T& header)
{
    // Each reading gets one sample and no sample is taken back, so their number is the pairing cursor.
    while (m_gpsSamples.size() < m_rawReadings.size()) {
        const auto reading = m_rawReadings[m_gpsSamples.size()].data();
        m_gpsSamples.emplace_back(header);
        if (timeKey(reading.nTimestamp) >= timeKey(header.nTimestamp))
            break;
    }
}

bool MRVBlackBoxData::ParseNMEA(std::string_view text)
{
    splitSentences(text, [this](std::string_view sentence) {
        m_parser.parse(sentence);
        appendSnapshot(m_snapshots, m_parser.m_Current());
        if (m_sentenceListener)
            m_sentenceListener(sentence);
    });
    return !text.empty();
}

bool MRVBlackBoxData::ParseGSensor(std::span<const std::byte> block)
{
    const auto record = gSensorRecord(block);
    if (record)
        m_gSensors.push_back(inG(*record));
    return record.has_value();
}

bool MRVBlackBoxData::ParseFrameData(std::span<const std::byte> block)
{
    if (block.size() != 8)
        return false;
    m_speedDisplay = std::to_integer<std::uint8_t>(block[4]);
    m_recPark = std::to_integer<std::uint8_t>(block[6]);
    m_includeEvent = std::to_integer<std::uint8_t>(block[7]);
    return true;
}

bool MRVBlackBoxData::ParseTime(std::span<const std::byte> block)
{
    ByteReader reader(block);
    const auto seconds = reader.littleEndian<std::int32_t>();
    reader.skip(8);
    const auto type = reader.bigEndian<std::uint32_t>();
    if (!reader.ok())
        return false;
    if (type != 0 && type != m_lastTimeEventType) {
        m_timeEvents.push_back({.e = type == 1 ? 0U : 1U,
                                .f = static_cast<std::uint32_t>(m_times.size()),
                                .t = utcTime(seconds)});
    }
    m_lastTimeEventType = type;
    m_times.push_back(seconds);
    return true;
}

bool MRVBlackBoxData::ParseTimeEvent(std::span<const std::byte>) { return true; }

std::uint64_t MRVBlackBoxData::frameCount() const
{
    return m_gSensors.size() > 1 ? m_gSensors.size() - 1 : 1;
}

} // namespace marvo
