// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/ByteSize.h"

#include <string_view>

namespace marvo {

namespace {

constexpr std::string_view units = "kMGTPEZY";
constexpr std::size_t maximumLength = 6;

/// Whether a remainder rounds its quotient up: above the half, or at the half when something below it was
/// lost already or the quotient is odd.
bool roundsUp(std::uint64_t remainder, std::uint64_t half, bool lostBelow, std::uint64_t quotient)
{
    return remainder > half || (remainder == half && (quotient % 2 == 1 || lostBelow));
}

std::string text(std::uint64_t quotient, std::string_view decimals, std::size_t unit)
{
    std::string result = std::to_string(quotient).append(decimals).append(" ");
    result += units[unit];
    result += 'B';
    return result.substr(0, maximumLength);
}

} // namespace

std::string byteSizeString(std::uint64_t bytes)
{
    if (bytes < 1024)
        return std::to_string(bytes) + " B";

    std::uint64_t quotient = bytes;
    std::uint64_t remainder = 0;
    bool lostBelow = false;
    std::size_t divisions = 0;
    do {
        lostBelow = lostBelow || remainder != 0;
        remainder = quotient % 1024;
        quotient /= 1024;
        ++divisions;
    } while (quotient >= 1024 && divisions < units.size());
    const std::size_t unit = divisions - 1;

    if (quotient >= 10) {
        if (roundsUp(remainder, 512, lostBelow, quotient))
            ++quotient;
        if (quotient == 1024 && unit + 1 < units.size())
            return text(1, ".0", unit + 1);
        return text(quotient, "", unit);
    }
    if (remainder >= 950) {
        ++quotient;
        return text(quotient, quotient == 10 ? "" : ".0", unit);
    }
    // A tenth is taken as 100 of the 1024 parts.
    std::uint64_t tenths = remainder / 100;
    if (roundsUp(remainder % 100, 50, lostBelow, tenths))
        ++tenths;
    return text(quotient, "." + std::to_string(tenths), unit);
}

} // namespace marvo
