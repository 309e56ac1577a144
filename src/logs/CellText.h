// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace marvo {

/// The maximum length of a cell.
inline constexpr std::size_t maxCellLength = 24;

/// Writes the texts of cells into a buffer of the caller's. An export writes millions of cells, so it
/// allocates nothing, uses no locale, and makes decimals with integer arithmetic.
class CellText
{
public:
    /// The row counts from 0.
    CellText(char* into, std::uint64_t row) : m_end(into), m_row(row) {}

    std::uint64_t row() const { return m_row; }
    char* end() const { return m_end; }

    void put(char character) { *m_end++ = character; }
    void put(std::string_view text)
    {
        std::memcpy(m_end, text.data(), text.size());
        m_end += text.size();
    }

    /// "%ld"
    void number(std::int64_t value) { m_end = std::to_chars(m_end, m_end + maxCellLength, value).ptr; }

    /// "%0Nd" of a number that is not negative.
    template <int width>
    void zeroPadded(std::uint32_t value)
    {
        static_assert(width >= 2 && width <= 5);
        constexpr std::uint32_t limits[] = {1, 10, 100, 1000, 10000, 100000};
        if (value >= limits[width])
            return number(value);
        for (int digit = width - 1; digit >= 0; --digit) {
            m_end[digit] = static_cast<char>('0' + value % 10);
            value /= 10;
        }
        m_end += width;
    }

    /// "%.1f" of value / divisor, a power of ten from 10 on, divided in double precision.
    void tenths(std::int64_t value, std::int64_t divisor);

    /// "%+.2f" of value / 256.
    void signedHundredthsOf256th(std::int16_t value);

private:
    void decimal(std::uint64_t value, unsigned scale);

    char* m_end;
    std::uint64_t m_row;
};

} // namespace marvo
