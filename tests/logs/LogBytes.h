// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>

namespace marvo::test {

/// Puts a number at a byte offset, the lowest byte first.
template <typename Number>
void putAt(std::string& bytes, std::size_t offset, Number number)
{
    const auto bits = static_cast<std::make_unsigned_t<Number>>(number);
    for (std::size_t i = 0; i < sizeof(Number); ++i)
        bytes.at(offset + i) = static_cast<char>(bits >> 8 * i & 0xFF);
}

inline std::string logHeader(std::uint32_t count)
{
    std::string header(12, '\x5A'); // what is not interpreted may be anything
    putAt(header, 0, count);
    return header;
}

/// A record of a .drv log: 2024/03/07, Thursday, 09:05:00, with a fix at the position given as in the file.
inline std::string drivingRecord(std::uint16_t seq, std::uint16_t lat = 3733,
                                 std::uint16_t latDecimals = 1234, std::uint16_t lon = 12658,
                                 std::uint16_t lonDecimals = 40)
{
    std::string record(40, '\0');
    putAt(record, 0, seq);
    const std::uint8_t bytes[] = {4, 1, 124, 3, 7, 9, 5, 0};
    for (std::size_t i = 0; i < sizeof bytes; ++i)
        putAt(record, 2 + i, bytes[i]);
    putAt(record, 10, lat);
    putAt(record, 12, latDecimals);
    putAt(record, 14, lon);
    putAt(record, 16, lonDecimals);
    putAt(record, 18, std::uint16_t{60});
    putAt(record, 20, std::uint32_t{12345});
    putAt(record, 28, std::uint16_t{95});
    putAt(record, 32, std::int16_t{256});
    putAt(record, 34, std::int16_t{-128});
    putAt(record, 38, std::int16_t{125});
    return record;
}

inline std::string drivingLog(std::uint32_t promised, std::uint32_t records)
{
    std::string file = logHeader(promised);
    for (std::uint32_t i = 0; i < records; ++i)
        file += drivingRecord(static_cast<std::uint16_t>(i), 3733, static_cast<std::uint16_t>(i % 10000));
    return file;
}

} // namespace marvo::test
