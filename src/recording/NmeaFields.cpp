// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "recording/NmeaFields.h"

#include "support/Utf8.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace marvo {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// Drops leading spaces and a plus sign, which std::from_chars does not know. Empty when what follows is no
/// decimal number, "inf" and "nan" included.
std::string_view numberText(std::string_view field)
{
    field.remove_prefix(std::min(field.find_first_not_of(' '), field.size()));
    const bool hasSign = !field.empty() && (field.front() == '+' || field.front() == '-');
    const std::string_view magnitude = field.substr(hasSign ? 1 : 0);
    const bool hasPoint = !magnitude.empty() && magnitude.front() == '.';
    const std::string_view digits = magnitude.substr(hasPoint ? 1 : 0);
    if (digits.empty() || !isDigit(digits.front()))
        return {};
    return hasSign && field.front() == '+' ? magnitude : field;
}

/// Of a number that no float can hold: whether it is too large, not too small.
bool isLarge(std::string_view number)
{
    std::int64_t magnitude = 0; // decimal places from the first digit that counts to the point
    bool beforePoint = true;
    bool significant = false;
    std::size_t i = number.front() == '-' ? 1 : 0;
    for (; i < number.size() && (isDigit(number[i]) || (beforePoint && number[i] == '.')); ++i) {
        if (number[i] == '.') {
            beforePoint = false;
            continue;
        }
        significant = significant || number[i] != '0';
        if (beforePoint)
            magnitude += significant ? 1 : 0;
        else
            magnitude -= significant ? 0 : 1;
    }
    if (i < number.size() && (number[i] == 'e' || number[i] == 'E'))
        magnitude += nmeaInteger(number.substr(i + 1));
    return magnitude > 0;
}

} // namespace

std::optional<NmeaFields> NmeaFields::split(std::string_view sentence)
{
    const std::size_t star = sentence.find('*');
    if (star == std::string_view::npos || sentence.find('*', star + 1) != std::string_view::npos ||
        !isValidUtf8(sentence))
        return std::nullopt;

    NmeaFields fields;
    const char* const end = sentence.data() + star;
    fields.m_starts[0] = sentence.data();
    std::size_t commas = 0;
    for (const char* p = sentence.data(); p != end; ++p) {
        if (*p != ',')
            continue;
        if (++commas <= readable)
            fields.m_starts[commas] = p + 1;
    }
    fields.m_count = commas + 1;
    if (fields.m_count <= readable)
        fields.m_starts[fields.m_count] = end + 1;
    return fields;
}

float nmeaNumber(std::string_view field)
{
    const std::string_view text = numberText(field);
    if (text.empty())
        return 0;
    float value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc::result_out_of_range)
        return value;
    if (!isLarge(text))
        return 0;
    return text.front() == '-' ? -std::numeric_limits<float>::infinity()
                               : std::numeric_limits<float>::infinity();
}

std::int32_t nmeaInteger(std::string_view field)
{
    const std::string_view text = numberText(field);
    std::int32_t value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc::result_out_of_range)
        return value;
    return text.front() == '-' ? std::numeric_limits<std::int32_t>::min()
                               : std::numeric_limits<std::int32_t>::max();
}

void assignNumber(double& target, std::string_view field)
{
    if (!field.empty())
        target = nmeaNumber(field);
}

void assignCharacter(char& target, std::string_view field)
{
    if (!field.empty())
        target = field.front();
}

int NmeaScanner::number(std::size_t width)
{
    m_rest.remove_prefix(std::min(m_rest.find_first_not_of(" \t\n\v\f\r"), m_rest.size()));
    std::size_t length = !m_rest.empty() && (m_rest.front() == '+' || m_rest.front() == '-') ? 1 : 0;
    const bool negative = length == 1 && m_rest.front() == '-';
    int value = 0;
    const std::size_t firstDigit = length;
    while (length < std::min(width, m_rest.size()) && isDigit(m_rest[length]))
        value = value * 10 + (m_rest[length++] - '0');
    m_rest = length > firstDigit ? m_rest.substr(length) : std::string_view();
    return negative ? -value : value;
}

void NmeaScanner::literal(char expected)
{
    m_rest = !m_rest.empty() && m_rest.front() == expected ? m_rest.substr(1) : std::string_view();
}

} // namespace marvo
