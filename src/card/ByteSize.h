// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace marvo {

/// A readable size, in binary units with one decimal below ten units: "0 B", "1023 B", "1.5 kB", "7.4 GB".
/// At most six characters, so that quotients of 1000 to 1023 lose their last letter ("1000 k"). Ties round
/// to even.
std::string byteSizeString(std::uint64_t bytes);

} // namespace marvo
