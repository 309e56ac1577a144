// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace marvo {

/// The input of a parser: a file, a block of memory, or in tests a device that fails halfway.
class ByteSource
{
public:
    virtual ~ByteSource() = default;

    /// Reads bytes at an offset into `into` and returns their number. Fewer than asked for means that the
    /// source ends or cannot be read there; an offset beyond the end gives 0.
    virtual std::size_t readAt(std::uint64_t offset, std::span<std::byte> into) = 0;
};

/// Bytes that are in memory already. They must outlive the source.
class MemorySource : public ByteSource
{
public:
    explicit MemorySource(std::span<const std::byte> bytes) : m_bytes(bytes) {}

    std::size_t readAt(std::uint64_t offset, std::span<std::byte> into) override
    {
        if (offset >= m_bytes.size())
            return 0;
        const std::size_t count = std::min(into.size(), m_bytes.size() - static_cast<std::size_t>(offset));
        if (count > 0)
            std::memcpy(into.data(), m_bytes.data() + offset, count);
        return count;
    }

private:
    std::span<const std::byte> m_bytes;
};

} // namespace marvo
