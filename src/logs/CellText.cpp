// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "logs/CellText.h"

#include <cmath>
#include <cstdlib>

namespace marvo {

/// value / scale with as many decimals as the scale (10 or 100) has noughts.
void CellText::decimal(std::uint64_t value, unsigned scale)
{
    m_end = std::to_chars(m_end, m_end + maxCellLength, value / scale).ptr;
    put('.');
    const auto fraction = static_cast<unsigned>(value % scale);
    if (scale == 100)
        put(static_cast<char>('0' + fraction / 10));
    put(static_cast<char>('0' + fraction % 10));
}

void CellText::tenths(std::int64_t value, std::int64_t divisor)
{
    const auto magnitude = static_cast<std::uint64_t>(std::abs(value));
    const auto step = static_cast<std::uint64_t>(divisor / 10); // of the value in one tenth
    const std::uint64_t remainder = magnitude % step;
    if (remainder * 2 == step) {
        // Half way between two tenths it counts to which side the quotient was rounded.
        const double quotient = static_cast<double>(value) / static_cast<double>(divisor);
        m_end = std::to_chars(m_end, m_end + maxCellLength, quotient, std::chars_format::fixed, 1).ptr;
        return;
    }
    if (value < 0)
        put('-');
    decimal(magnitude / step + (remainder * 2 > step ? 1 : 0), 10);
}

void CellText::signedHundredthsOf256th(std::int16_t value)
{
    put(value < 0 ? '-' : '+');
    // value / 256 is exact in binary, so a half is one and goes to the even digit: 100 / 256 = 25 / 64.
    const unsigned scaled = static_cast<unsigned>(std::abs(static_cast<int>(value))) * 25;
    unsigned hundredths = scaled / 64;
    const unsigned remainder = scaled % 64;
    if (remainder > 32 || (remainder == 32 && hundredths % 2 == 1))
        ++hundredths;
    decimal(hundredths, 100);
}

} // namespace marvo
