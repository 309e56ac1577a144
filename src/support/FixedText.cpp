// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "support/FixedText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace marvo {

std::string fixedText(double value, int decimals)
{
    constexpr int maxDecimals = 20;
    // A sign, the digits of the largest double, the point, the decimals.
    std::array<char, std::numeric_limits<double>::max_exponent10 + maxDecimals + 3> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed,
                                   std::clamp(decimals, 0, maxDecimals))
                         .ptr;
    return {text.data(), end};
}

} // namespace marvo
