// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace marvo {

/// Four bytes in file order as one number, which compares in one step.
using Tag = std::uint32_t;

inline constexpr std::size_t tagSize = 4;

constexpr Tag tagOf(const char (&text)[5])
{
    return std::bit_cast<Tag>(std::array{text[0], text[1], text[2], text[3]});
}

inline constexpr Tag gpsTag = tagOf("0GPS");
inline constexpr Tag gSensorTag = tagOf("0GDA");

inline Tag tagAt(const std::byte* bytes)
{
    Tag tag;
    std::memcpy(&tag, bytes, tagSize);
    return tag;
}

/// Number of leading words that are no record's tag; bytes after the last whole word are ignored.
std::size_t wordsWithoutTag(std::span<const std::byte> bytes);

} // namespace marvo
