// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "recording/BlockReader.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace marvo {

BlockReader::BlockReader(ByteSource& source, std::stop_token stop)
    : m_source(source), m_stop(std::move(stop)), m_block(std::make_unique_for_overwrite<Block>())
{}

void BlockReader::skip(std::int64_t distance)
{
    const std::int64_t target = static_cast<std::int64_t>(m_cursor) + distance;
    if (target >= 0 && target <= static_cast<std::int64_t>(m_filled)) {
        m_cursor = static_cast<std::size_t>(target);
        return;
    }
    m_blockOffset += static_cast<std::uint64_t>(target);
    m_filled = 0;
    m_cursor = 0;
    m_nextRead = smallestRead;
}

void BlockReader::fill()
{
    const std::size_t kept = m_filled - m_cursor;
    std::memmove(m_block->bytes, m_block->bytes + m_cursor, kept);
    m_blockOffset += m_cursor;
    m_filled = kept;
    m_cursor = 0;
    if (m_stop.stop_requested())
        return;
    const std::uint64_t offset = m_blockOffset + kept;
    std::size_t length = std::min(m_nextRead, blockSize - kept);
    // A long read ends with a page of the source, so that the next one begins with a page.
    if (length > smallestRead)
        length -= static_cast<std::size_t>((offset + length) % smallestRead);
    m_filled += m_source.readAt(offset, {m_block->bytes + kept, length});
    m_nextRead = std::min(m_nextRead * 2, blockSize);
}

} // namespace marvo
