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

/// Memory for a file that is read as a whole.
using LargeBuffer = std::unique_ptr<std::byte[], FreeLargeBuffer>;

/// So many bytes, not written yet; null when there is no memory for them. A large piece is asked for in pages
/// of 2 MiB where the system has them: to be given ten thousand of 4 KiB takes longer than to read them full.
LargeBuffer makeLargeBuffer(std::size_t size);

} // namespace marvo
