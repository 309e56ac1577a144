// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "archive/Sha256.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace marvo {

/// What adding up a file gave.
struct MediumReading
{
    Sha256Sum sum{};
    std::uint64_t bytes = 0; ///< read, and in the sum
    int error = 0;           ///< errno of the reading fault that ended it; 0 when the file's end did
    bool isWhole = false;    ///< read to its end, as long as it was at the beginning
    bool cancelled = false;
    /// The bytes came from the medium. False when some may have come out of the system's cache, which would
    /// hide what has become of them on the medium.
    bool isPastCache = false;
};

/// Told of each piece that was read; false ends the reading. May be empty.
using OnBytesRead = std::function<bool(std::uint64_t count)>;

/// Reads a file from its medium and adds it up; with `upTo` only its first bytes. The descriptor is one for
/// reading; its position does not matter.
///
/// The system's cache is told to forget the file (posix_fadvise), and asked whether it did (mincore): it does
/// not where somebody maps the file or what was written is not on the medium yet. Then the file is read
/// around the cache (O_DIRECT), where the file system can do that.
MediumReading readMedium(int file, const OnBytesRead& onRead = {}, std::optional<std::uint64_t> upTo = {});

} // namespace marvo
