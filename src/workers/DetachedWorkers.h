// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>

namespace marvo {

/// Threads for work that a card may delay without limit, such as reading or closing a file.
///
/// They are never joined without a time limit, and one that hangs does not keep others from starting. The
/// work must own all data it uses.
class DetachedWorkers
{
public:
    /// If no thread can be created, the work is done before this returns.
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
