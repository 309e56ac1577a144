// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stop_token>
#include <string>

namespace marvo {

/// What formatting a card would erase.
struct CardContents
{
    std::size_t recordings = 0;
    bool countUnknown = false;           ///< its folder cannot be read, or not to its end
    std::uint64_t usedBytes = 0;         ///< of everything on it; 0 as well when the system does not tell
    std::optional<std::string> settings; ///< its "config.bin"
    /// There is a "config.bin", but not one that can be read and kept.
    bool settingsUnreadable = false;
};

/// Looks through a mounted card, which can take long. Any thread; a requested stop ends it, with a
/// meaningless result.
CardContents readCardContents(const std::string& root, const std::stop_token& stop);

/// "27.4 GB": a size in binary units with one decimal, "0 B" to "1023 B" without.
std::string decimalSizeString(std::uint64_t bytes);

} // namespace marvo
