// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>

namespace marvo {

/// Threads for work that a card may hold up for as long as it likes, such as reading a file or closing it.
///
/// They are never joined without a limit, and one that hangs keeps no other from starting. The work must own
/// all that it touches.
class DetachedWorkers
{
public:
    /// Where the system has no thread to give, the work is done before this returns: late is better than
    /// never.
    void start(std::function<void()> work);
    /// False when some work was still going on when the time was up.
    bool waitForAll(std::chrono::milliseconds atMost) const;

private:
    struct Count
    {
        std::mutex mutex;
        std::condition_variable changed;
        int running = 0;
    };
    std::shared_ptr<Count> m_count = std::make_shared<Count>();
};

} // namespace marvo
