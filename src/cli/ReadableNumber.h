// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace marvo::cli {

/// A number for a person: so many decimals, or the short form with an exponent where those would be a row of
/// digits that no one reads. Never depends on the locale.
std::string readableNumber(double number, int decimals);

/// The same with "+" before a number above zero.
std::string readableSignedNumber(double number, int decimals);

} // namespace marvo::cli
