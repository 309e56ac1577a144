// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

namespace marvo {

/// The decimal number that a text begins with: [sign] digits [. digits] [e [sign] digits], with the point as
/// the decimal sign whatever the locale. Leading ASCII white space is skipped, whatever follows the number is
/// ignored ("0.3g" is 0.3, "0x1f" is 0). Absent when the text begins with no number; "inf" and "nan" are
/// none. A number too large for a double is an infinity, one too small is a zero, each with its sign.
std::optional<double> readDecimalNumber(std::string_view text);

} // namespace marvo
