// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "recording/AtomicRecord.h"
#include "recording/MRVGpsData.h"
#include "recording/MRVNMEASentenceParser.h"
#include "recording/SampleRecords.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace marvo {

class BlockReader;
class ByteSource;

/// Reads the camera's data out of one AVI recording (RIFF): GPS fixes, NMEA states and G-sensor readings. The
/// layout of the data area stands in docs/formats.md.
///
/// One walk at a time fills the lists, on any thread. No other thread may use the lists until it has
/// returned.
class MRVBlackBoxData
{
public:
    static constexpr std::size_t mostEntries = 2'000'000; ///< 100 readings a second for 5.5 hours

    /// Walks the file and fills the lists anew. True when the camera's data area was read to its end or to
    /// the end of its budget. False otherwise; the lists keep what was read before the fault. More than
    /// mostEntries in a list, or more than a quarter of the memory available, is a fault: no recording has as
    /// much. A walk that is asked to stop soon ends with false. Only a regular file is opened.
    bool ExtractStreamInformation(const std::string& path, std::stop_token stop = {});
    bool ExtractStreamInformation(ByteSource& source, std::stop_token stop = {});
    /// The same, but no record is begun behind the end of the data area's declared size: what follows, the
    /// film, is not searched, so that a recording costs as much as its data area. For many recordings in a
    /// row.
    bool ExtractDataArea(ByteSource& source, std::stop_token stop = {});
    void clear();

    /// Sets a listener for every sentence that goes to the parser, in the same order and on the same thread.
    /// clear() keeps the listener.
    using SentenceListener = std::function<void(std::string_view sentence)>;
    void setSentenceListener(SentenceListener listener) { m_sentenceListener = std::move(listener); }

    /// Tells somebody else of every GPS record, behind its sentences and before it is paired with readings:
    /// its first sample will be entry m_vGpsData().size(). The text is the record's own, as far as the file
    /// holds it, and valid during the call. On the walk's thread; clear() keeps the listener.
    using FixListener = std::function<void(const _AVI_GPS_DATA_T& header, std::string_view text)>;
    void setFixListener(FixListener listener) { m_fixListener = std::move(listener); }

    /// Splits a text into sentences and feeds them to the parser; one entry of m_NMEAs for each that starts
    /// with "$G" and is ended by CR, LF or 0. True unless the text is empty.
    bool ParseNMEA(std::string_view text);
    /// Appends the reading of one raw record of 24 bytes; false for fewer bytes.
    bool ParseGSensor(std::span<const std::byte> block);
    /// Takes the frame-info flags from a block of 8 bytes; false for any other size.
    bool ParseFrameData(std::span<const std::byte> block);
    /// Takes a time block: seconds since 1970 at offset 0 (little-endian), event type at offset 12
    /// (big-endian). False for fewer than 16 bytes.
    bool ParseTime(std::span<const std::byte> block);
    /// Accepts anything and keeps nothing.
    bool ParseTimeEvent(std::span<const std::byte> block);

    /// Readings in g, in file order.
    const std::vector<MRVGSensor>& m_GSensors() const { return m_gSensors; }
    /// The raw readings, one for each entry of m_GSensors.
    const std::vector<MRVAviGSensorData>& m_vGSensorData() const { return m_rawReadings; }
    /// Entry i is the GPS header that belongs to reading i; never longer than m_GSensors.
    const std::vector<MRVAviGpsData>& m_vGpsData() const { return m_gpsSamples; }
    /// One state for each sentence that starts with "$G". Equal neighbours share one object; no entry is
    /// null.
    const std::vector<std::shared_ptr<const MRVGpsData>>& m_NMEAs() const { return m_snapshots; }
    /// Seconds values of the time blocks, and the changes of the event type among them.
    const std::vector<std::int32_t>& m_Times() const { return m_times; }
    const std::vector<MRVTimeEvent>& m_TimeEvents() const { return m_timeEvents; }
    /// One less than the number of readings, but at least 1.
    std::uint64_t frameCount() const;

    std::uint8_t m_udatSpeedDisplay() const { return m_speedDisplay; }
    std::uint8_t m_udatIncludeEvent() const { return m_includeEvent; }
    std::uint8_t m_udatRecPark() const { return m_recPark; }
    std::uint32_t m_LastTimeEventType() const { return m_lastTimeEventType; }
    const MRVNMEASentenceParser& m_NMEAParser() const { return m_parser; }

private:
    enum class Reach { WalkOn, DataAreaOnly };
    bool extract(ByteSource& source, Reach reach, std::stop_token stop);
    bool walk(BlockReader& reader, Reach reach, std::uint64_t memory);
    std::uint64_t bytesKept() const;
    void dropUnpaired();
    bool readGpsRecord(BlockReader& reader, std::uint32_t& budget);
    bool readGSensorRecord(BlockReader& reader, std::uint32_t& budget);
    void pair(const _AVI_GPS_DATA_T& header);

    MRVNMEASentenceParser m_parser;
    SentenceListener m_sentenceListener;
    FixListener m_fixListener;
    std::vector<std::shared_ptr<const MRVGpsData>> m_snapshots;
    std::vector<MRVGSensor> m_gSensors;
    std::vector<std::int32_t> m_times;
    std::vector<MRVTimeEvent> m_timeEvents;
    std::vector<MRVAviGSensorData> m_rawReadings;
    std::vector<MRVAviGpsData> m_gpsSamples;
    std::uint8_t m_speedDisplay = 0;
    std::uint8_t m_includeEvent = 0;
    std::uint8_t m_recPark = 0;
    std::uint32_t m_lastTimeEventType = 0;
};

} // namespace marvo
