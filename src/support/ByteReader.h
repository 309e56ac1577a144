// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <type_traits>

namespace marvo {

/// Reads numbers one after the other from bytes that came from a file, whatever the machine's own byte order.
///
/// A read that goes beyond the end gives 0, leaves the position where it was and makes ok() false for good,
/// so that a whole record is read first and asked about once.
class ByteReader
{
public:
    explicit ByteReader(std::span<const std::byte> bytes) : m_bytes(bytes) {}
    ByteReader(const void* bytes, std::size_t size) : m_bytes(static_cast<const std::byte*>(bytes), size) {}

    template <typename Number>
    Number littleEndian()
    {
        return number<Number>(std::endian::little);
    }
    template <typename Number>
    Number bigEndian()
    {
        return number<Number>(std::endian::big);
    }

    /// The next count bytes as they stand; empty when fewer remain.
    std::span<const std::byte> take(std::size_t count)
    {
        if (!has(count))
            return {};
        const auto taken = m_bytes.first(count);
        m_bytes = m_bytes.subspan(count);
        return taken;
    }
    void skip(std::size_t count) { take(count); }

    std::size_t remaining() const { return m_bytes.size(); }
    bool ok() const { return m_ok; }

private:
    template <typename Number>
    Number number(std::endian order)
    {
        static_assert(std::is_arithmetic_v<Number>);
        const auto raw = take(sizeof(Number));
        if (raw.empty())
            return Number{};
        std::byte copy[sizeof(Number)];
        for (std::size_t i = 0; i < sizeof(Number); ++i)
            copy[i] = raw[order == std::endian::native ? i : sizeof(Number) - 1 - i];
        Number result;
        std::memcpy(&result, copy, sizeof(Number));
        return result;
    }
    bool has(std::size_t count)
    {
        m_ok = m_ok && count <= m_bytes.size();
        return m_ok;
    }

    std::span<const std::byte> m_bytes;
    bool m_ok = true;
};

} // namespace marvo
