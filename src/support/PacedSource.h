// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/ByteSource.h"

#include <atomic>
#include <chrono>
#include <memory>
#include <stop_token>
#include <thread>
#include <utility>

namespace marvo {

/// Reads another source until a stop is requested, which is its end.
class StoppableSource : public ByteSource
{
public:
    StoppableSource(ByteSource& source, std::stop_token stop) : m_source(source), m_stop(std::move(stop)) {}

    std::size_t readAt(std::uint64_t offset, std::span<std::byte> into) override
    {
        return m_stop.stop_requested() ? 0 : m_source.readAt(offset, into);
    }

private:
    ByteSource& m_source;
    std::stop_token m_stop;
};

/// The same, and leaves the medium free for as long as each read has taken once others need it.
class PacedSource : public StoppableSource
{
public:
    /// Whether others need the medium may change at any time.
    using Pace = std::shared_ptr<const std::atomic<bool>>;

    PacedSource(ByteSource& source, Pace isShared, std::stop_token stop)
        : StoppableSource(source, std::move(stop)), m_isShared(std::move(isShared))
    {}

    std::size_t readAt(std::uint64_t offset, std::span<std::byte> into) override
    {
        const auto begin = std::chrono::steady_clock::now();
        const std::size_t count = StoppableSource::readAt(offset, into);
        if (*m_isShared)
            std::this_thread::sleep_for(std::chrono::steady_clock::now() - begin);
        return count;
    }

private:
    Pace m_isShared;
};

} // namespace marvo
