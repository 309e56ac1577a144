// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "cli/ReadableNumber.h"

#include <array>
#include <charconv>
#include <cmath>

namespace marvo::cli {

std::string readableNumber(double number, int decimals)
{
    constexpr double longest = 1e12;
    std::array<char, 64> digits;
    const auto format = std::abs(number) < longest ? std::chars_format::fixed : std::chars_format::general;
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number, format, decimals);
    return {digits.data(), result.ptr};
}

std::string readableSignedNumber(double number, int decimals)
{
    std::string text = readableNumber(number, decimals);
    if (number > 0)
        text.insert(text.begin(), '+');
    return text;
}

} // namespace marvo::cli
