// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace marvo {

/// The fields of one NMEA 0183 sentence: the text before the "*", split at the commas. Field 0 is the name
/// with its "$". The fields refer to the sentence, which must outlive them.
class NmeaFields
{
public:
    /// None when the sentence is not UTF-8 or does not hold exactly one "*". The checksum is not compared.
    static std::optional<NmeaFields> split(std::string_view sentence);

    /// Number of fields in the sentence, those beyond `readable` included.
    std::size_t count() const { return m_count; }
    /// The text of a field; empty for a missing field and for those beyond `readable`.
    std::string_view operator[](std::size_t index) const
    {
        if (index >= m_count || index >= readable)
            return {};
        return {m_starts[index], static_cast<std::size_t>(m_starts[index + 1] - m_starts[index]) - 1};
    }

    /// As many as the longest sentence needs: a list of satellites that fills all twelve channels.
    static constexpr std::size_t readable = 4 + 4 * 12;

private:
    NmeaFields() = default;

    /// Where each field begins; the entry after the last field stands one behind the comma that would follow.
    /// Left unset on purpose: only the first m_count + 1 entries are ever read.
    std::array<const char*, readable + 1> m_starts;
    std::size_t m_count = 0;
};

/// The decimal number that a field begins with, read at single precision: spaces, sign, digits, point and
/// exponent. 0 when there is none ("inf" and "nan" are none, "0x10" is 0), infinity for one that is too
/// large.
float nmeaNumber(std::string_view field);

/// The whole number that a field begins with, 0 when there is none; one beyond 32 bits takes the nearest
/// that fits.
std::int32_t nmeaInteger(std::string_view field);

/// Sets the target to the field's number (as nmeaNumber) or first byte; an empty field changes nothing.
void assignNumber(double& target, std::string_view field);
void assignCharacter(char& target, std::string_view field);

/// Reads fixed-width decimal numbers as scanf's "%02d" and "%03d" do: white space is skipped, a sign counts
/// towards the width. After the first item that is not there, everything else reads as 0.
class NmeaScanner
{
public:
    explicit NmeaScanner(std::string_view text) : m_rest(text) {}

    int number(std::size_t width);
    void literal(char expected);

private:
    std::string_view m_rest;
};

} // namespace marvo
