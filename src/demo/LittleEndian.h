// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <concepts>
#include <cstdint>
#include <string_view>
#include <type_traits>
#include <vector>

namespace marvo::demo {

using Bytes = std::vector<std::uint8_t>;

/// Appends an integer in the byte order of RIFF and of the camera: least significant byte first.
template <std::integral Integer>
void putLe(Bytes& out, Integer value)
{
    auto bits = static_cast<std::make_unsigned_t<Integer>>(value);
    for (std::size_t i = 0; i < sizeof(Integer); ++i) {
        out.push_back(static_cast<std::uint8_t>(bits & 0xFF));
        if constexpr (sizeof(Integer) > 1)
            bits = static_cast<decltype(bits)>(bits >> 8);
    }
}

/// Appends an IEEE double, least significant byte first.
inline void putLe(Bytes& out, double value) { putLe(out, std::bit_cast<std::uint64_t>(value)); }

/// Appends the bytes of a text as they are: chunk identifiers, tags, NMEA.
inline void putText(Bytes& out, std::string_view text) { out.insert(out.end(), text.begin(), text.end()); }

} // namespace marvo::demo
