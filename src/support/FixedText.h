// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace marvo {

/// A number with a fixed count of decimals (0 to 20), exactly as printf's "%.*f" writes it in the C locale:
/// ties go to the even digit, and a negative number that rounds to zero keeps its sign. Qt's own formatting
/// differs in both. The locale of the process does not matter.
std::string fixedText(double value, int decimals);

} // namespace marvo
