// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "support/DecimalNumber.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace marvo {

namespace {

constexpr std::string_view digits = "0123456789";

/// True when a number outside the range of a double is too large, false when it is too small. The number is
/// well-formed, without sign, and has a digit other than zero.
bool isTooLarge(std::string_view number)
{
    const std::size_t exponentMark = number.find_first_of("eE");
    const std::string_view mantissa = number.substr(0, exponentMark);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_of(digits.substr(1));
    const long long lead = static_cast<long long>(point) - static_cast<long long>(first);
    if (exponentMark == std::string_view::npos)
        return lead > 0;

    std::string_view exponentText = number.substr(exponentMark + 1);
    const bool negative = exponentText.front() == '-';
    if (exponentText.find_first_of("+-") == 0)
        exponentText.remove_prefix(1);
    long long exponent = 0;
    const char* const end = exponentText.data() + exponentText.size();
    if (std::from_chars(exponentText.data(), end, exponent).ec != std::errc())
        return !negative;
    return (negative ? -exponent : exponent) > -lead;
}

} // namespace

std::optional<double> readDecimalNumber(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    // What from_chars takes beside these is another sign or the name of a value that is no number.
    const std::size_t firstDigit = text.starts_with('.') ? 1 : 0;
    if (text.size() <= firstDigit || digits.find(text[firstDigit]) == std::string_view::npos)
        return std::nullopt;

    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::result_out_of_range) {
        const std::string_view number = text.substr(0, static_cast<std::size_t>(end - text.data()));
        value = isTooLarge(number) ? std::numeric_limits<double>::infinity() : 0.0;
    }
    return negative ? -value : value;
}

} // namespace marvo
