// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/ByteSource.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <stop_token>

namespace marvo {

/// Reads a source of any size through one block of memory, forward with seeks.
///
/// What is skipped is not read. The first read after a long skip is small and each further one larger, up to
/// the whole block: a header costs one small read, a long data area only a few hundred for a gigabyte.
class BlockReader
{
public:
    static constexpr std::size_t smallestRead = 4 * 1024;
    static constexpr std::size_t blockSize = 128 * 1024;

    /// Once stop is requested, every read that needs the source is a short one.
    BlockReader(ByteSource& source, std::stop_token stop);

    /// The bytes in memory at the position: at least `count` (at most smallestRead), fewer only at the end of
    /// the source or where it cannot be read. Valid until the next call.
    std::span<const std::byte> ahead(std::size_t count)
    {
        if (m_filled - m_cursor < count)
            fill();
        return {m_block->bytes + m_cursor, m_filled - m_cursor};
    }
    /// Of the next byte in the source.
    std::uint64_t position() const { return m_blockOffset + m_cursor; }
    /// Moves forward by bytes that ahead() returned.
    void advance(std::size_t count) { m_cursor += count; }
    /// Moves the position by any distance, also beyond the end; never to before the start.
    void skip(std::int64_t distance);

private:
    /// The system copies whole pages fastest to page-aligned memory.
    struct alignas(smallestRead) Block
    {
        std::byte bytes[blockSize];
    };

    void fill();

    ByteSource& m_source;
    std::stop_token m_stop;
    std::unique_ptr<Block> m_block;
    std::uint64_t m_blockOffset = 0; ///< of the block's first byte in the source
    std::size_t m_filled = 0;
    std::size_t m_cursor = 0;
    std::size_t m_nextRead = smallestRead;
};

} // namespace marvo
