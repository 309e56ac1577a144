// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>

namespace marvo::test {

/// Bytes put down one after the other, as they stand in a recording.
struct Bytes
{
    std::string data;

    Bytes& text(std::string_view raw)
    {
        data += raw;
        return *this;
    }
    template <typename Unsigned>
    Bytes& number(Unsigned value)
    {
        for (std::size_t i = 0; i < sizeof value; ++i)
            data += static_cast<char>(static_cast<std::uint64_t>(value) >> (8 * i) & 0xFF);
        return *this;
    }
    Bytes& real(double value) { return number(std::bit_cast<std::uint64_t>(value)); }

    Bytes& reading(std::int64_t timeMs, std::int32_t x = 0, std::int32_t y = 0, std::int32_t z = 256)
    {
        return text("0GDA").number(timeMs).number(x).number(y).number(z).number(std::int32_t{21});
    }
    /// Header and text without what follows them; the length field is the text's unless given.
    Bytes& gps(std::int64_t timeMs, std::string_view nmea, char KM, std::int64_t lengthField = INT64_MIN)
    {
        const auto length = lengthField == INT64_MIN ? static_cast<std::int64_t>(nmea.size()) : lengthField;
        text("0GPS").number(timeMs).number(static_cast<std::int32_t>(length)).number(std::int32_t{1});
        return real(3733.1234).real(12658.5).real(59.9).text({&KM, 1}).text(nmea);
    }
    /// A whole record as the camera ends it, so that the next tag follows at once.
    Bytes& longGps(std::int64_t timeMs, std::string_view nmea)
    {
        return gps(timeMs, nmea, '1').text(std::string_view("\0\0\0\0\0\0\0\0", 8));
    }
};

inline std::string avi(const Bytes& dataArea, std::uint32_t budget)
{
    return Bytes()
        .text("RIFF")
        .number(std::uint32_t{0})
        .text("AVI LIST")
        .number(std::uint32_t{5})
        .text("12345JUNK")
        .number(budget)
        .text(dataArea.data)
        .data;
}
inline std::string avi(const Bytes& dataArea) { return avi(dataArea, 0xFFFFFFFF); }

inline std::span<const std::byte> bytesOf(std::string_view text) { return std::as_bytes(std::span(text)); }

} // namespace marvo::test
