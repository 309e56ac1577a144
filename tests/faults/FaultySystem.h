// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

namespace marvo::test {

/// What the system's file calls do in this program, which brings its own in place of the C library's.
struct FaultySystem
{
    /// Files give no byte from here on: they end, or with readError they fail.
    std::optional<std::uint64_t> readableUpTo;
    int readError = 0;

    /// Calls that change a folder or file, counted from 1, since the count was last set.
    int changes = 0;
    /// From this one on there is no room for anything new; a write at it is still half done.
    int fullFrom = 0;
    /// This one fails as on a card that is pulled out, with EIO.
    int failingChange = 0;
    /// Right before this one the process gets the signal.
    int signalledChange = 0;
    int signal = 0;
    /// Folders refuse new files.
    bool foldersClosed = false;
};
extern FaultySystem faultySystem;

} // namespace marvo::test
