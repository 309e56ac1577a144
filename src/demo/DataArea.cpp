// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/DataArea.h"

namespace marvo::demo {

namespace {

/// One record's bytes in the file, and its cost against the size of the JUNK chunk.
///
/// A reader counts 24 bytes for a G-sensor record; for a GPS record its header, its text and a zero byte that
/// follows, if any. It does not count tags and the seven bytes of the long trailer. Records therefore take
/// more bytes than they cost.
struct Encoded
{
    Bytes bytes;
    std::uint32_t counted = 0;
};

Encoded encoded(const _AVI_GSENSOR_DATA_T& record)
{
    Encoded out;
    putText(out.bytes, "0GDA");
    putLe(out.bytes, record.nTimestamp);
    for (const std::int32_t value : {record.xAxis, record.yAxis, record.zAxis, record.nTemperature})
        putLe(out.bytes, value);
    out.counted = 24;
    return out;
}

/// The text, padded with empty lines, which a reader ignores.
std::string filledUp(std::string text, std::size_t more) { return text.append(more, '\n'); }

enum class Trailer { Long, Short };

Trailer trailerOf(const _AVI_GPS_DATA_T& header)
{
    return header.KM == '1' || header.KM == '9' ? Trailer::Long : Trailer::Short;
}

/// "0GPS", the header of 41 bytes, the text, then by the marker byte KM:
///
/// - long trailer ('1', '9'): 7 bytes, which complete the header to the 48 bytes it takes in the camera's
///   memory, and a zero byte where the record would otherwise have an odd length. A reader looks at the byte
///   after the seven: zero is taken, anything else is the next record's tag.
/// - short trailer: the text ends with a zero byte of its own, which dwExtLength counts. A reader steps one
///   byte back after the text, finds that zero and takes it. Without it the reader would lose step.
///
/// `more` lengthens the text, and `closed` sees to a zero byte behind a long trailer, for a last record.
Encoded encoded(const GpsRecord& record, std::size_t more = 0, bool closed = false)
{
    std::string text = filledUp(record.nmea, more);
    std::string trailer;
    std::uint32_t counted = 41;
    if (trailerOf(record.header) == Trailer::Long) {
        trailer.assign(7, '\0');
        if (closed || text.size() % 2 != 0) {
            trailer.push_back('\0');
            ++counted;
        }
    } else {
        if (text.size() % 2 != 0 && !closed)
            text.push_back('\n');
        text.push_back('\0');
        ++counted;
    }
    Encoded out;
    putText(out.bytes, "0GPS");
    putLe(out.bytes, record.header.nTimestamp);
    putLe(out.bytes, static_cast<std::int32_t>(text.size()));
    putLe(out.bytes, record.header.nQualityIndicator);
    putLe(out.bytes, record.header.fLatitude);
    putLe(out.bytes, record.header.fLongitude);
    putLe(out.bytes, record.header.fSpeed);
    putLe(out.bytes, record.header.KM);
    putText(out.bytes, text);
    putText(out.bytes, trailer);
    out.counted = counted + static_cast<std::uint32_t>(text.size());
    return out;
}

Encoded encoded(const DataRecord& record)
{
    return std::visit([](const auto& r) { return encoded(r); }, record);
}

/// The last record: what follows the area must not change how it is read.
Encoded encodedLast(const DataRecord& record, std::size_t more)
{
    if (const auto* gps = std::get_if<GpsRecord>(&record))
        return encoded(*gps, more, true);
    return encoded(record);
}

void append(Bytes& out, const Bytes& more) { out.insert(out.end(), more.begin(), more.end()); }

void putJunk(Bytes& out, const Bytes& body)
{
    putText(out, "JUNK");
    putLe(out, static_cast<std::uint32_t>(body.size()));
    append(out, body);
}

} // namespace

Bytes dataAreaChunks(std::span<const DataRecord> records, DataAreaEnd end)
{
    Bytes out;
    if (records.empty()) {
        putJunk(out, {});
        return out;
    }
    std::vector<Encoded> parts;
    parts.reserve(records.size());
    for (const DataRecord& record : records.first(records.size() - 1))
        parts.push_back(encoded(record));
    std::uint32_t counted = 0;
    for (const Encoded& part : parts)
        counted += part.counted;

    if (end == DataAreaEnd::EndOfFile) {
        Bytes body;
        for (const Encoded& part : parts)
            append(body, part.bytes);
        append(body, encodedLast(records.back(), 0).bytes);
        if (body.size() % 2 != 0)
            body.push_back(0);
        putJunk(out, body);
        return out;
    }

    // The first chunk's size is the budget, but the records that use it up take more bytes than it counts. So
    // the first chunk holds as many records as fit, and a second chunk holds the rest: to the reader of the
    // records its id and size are two words to pass over. The first chunk is filled up by such words too, so
    // the last record is lengthened until what is to be filled is a multiple of four.
    Encoded last = encodedLast(records.back(), 0);
    std::size_t firstChunk = 0;
    std::size_t taken = 0;
    while (taken < parts.size() && firstChunk + parts[taken].bytes.size() <= counted + last.counted)
        firstChunk += parts[taken++].bytes.size();
    for (std::size_t more = 1; (counted + last.counted - firstChunk) % 4 != 0 && more < 4; ++more)
        last = encodedLast(records.back(), more);

    Bytes first;
    for (std::size_t i = 0; i < taken; ++i)
        append(first, parts[i].bytes);
    // Not zeros: one behind a long trailer would be taken for that record's own.
    while (first.size() + 4 <= counted + last.counted)
        putText(first, "FILL");
    Bytes second;
    for (std::size_t i = taken; i < parts.size(); ++i)
        append(second, parts[i].bytes);
    append(second, last.bytes);
    if (second.size() % 2 != 0)
        second.push_back(0);
    putJunk(out, first);
    putJunk(out, second);
    return out;
}

} // namespace marvo::demo
