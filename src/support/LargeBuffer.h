// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>

namespace marvo {

struct FreeLargeBuffer
{
    void operator()(std::byte* memory) const { std::free(memory); }
};

/// Memory for a whole file.
using LargeBuffer = std::unique_ptr<std::byte[], FreeLargeBuffer>;

/// Uninitialised memory of a size in bytes; null when there is not enough. Large blocks use pages of 2 MiB
/// where the system has them: mapping ten thousand pages of 4 KiB takes longer than filling them.
LargeBuffer makeLargeBuffer(std::size_t size);

} // namespace marvo
