// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <QString>

namespace marvo {

/// The rules for what a person types into the settings tabs. Each gives nothing when the value will do, else
/// the message to show, in the interface language.
class MRVValidator
{
public:
    /// The bounds of an impact threshold in g, both allowed.
    static constexpr double lowestThreshold = 0.05;
    static constexpr double highestThreshold = 1.5;
    /// The least share of the card that a kind of recording may have, in per cent.
    static constexpr int lowestCardShare = 10;

    /// A threshold as typed, in g. An empty text will do. Text that begins with no decimal number gives
    /// "msg.input_value_invalid_format", a number outside the bounds "msg.gsensor_outofrange_fmt" with both.
    static std::optional<QString> validateGsensorThreshold(const QString& text);

    /// A share of the card in per cent; less than lowestCardShare gives "msg.sdcard_ratio_too_low".
    static std::optional<QString> validateSDCardSizeRatio(int percentage);
};

/// True for no text and for a text without characters. White space is a character.
bool isEmptyString(const std::optional<QString>& text);

/// The number that a text begins with, as readDecimalNumber reads it, after white space of any script; absent
/// when there is none.
std::optional<double> numberInText(QStringView text);

/// What the camera's record holds for a threshold as typed: the number times 100 in double precision,
/// truncated toward zero, so "0.57" is 56. A text without number is 0; what no 32-bit integer can hold is its
/// nearest.
std::int32_t storedThreshold(QStringView text);

} // namespace marvo
