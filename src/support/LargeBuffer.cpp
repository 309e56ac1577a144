// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "support/LargeBuffer.h"

#include <algorithm>
#include <limits>

#include <sys/mman.h>

namespace marvo {

namespace {

constexpr std::size_t largePage = 2 * 1024 * 1024;
constexpr std::size_t worthIt = 2 * largePage;

} // namespace

LargeBuffer makeLargeBuffer(std::size_t size)
{
    if (size < worthIt || size > std::numeric_limits<std::size_t>::max() - largePage)
        return LargeBuffer(static_cast<std::byte*>(std::malloc(std::max<std::size_t>(size, 1))));
    const std::size_t rounded = (size + largePage - 1) / largePage * largePage;
    void* memory = std::aligned_alloc(largePage, rounded);
#ifdef MADV_HUGEPAGE
    if (memory != nullptr)
        ::madvise(memory, rounded, MADV_HUGEPAGE); // a wish; without it the pages are small
#endif
    return LargeBuffer(static_cast<std::byte*>(memory));
}

} // namespace marvo
