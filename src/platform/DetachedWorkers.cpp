// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "platform/DetachedWorkers.h"

#include <thread>
#include <utility>

namespace marvo {

void DetachedWorkers::start(std::function<void()> work)
{
    {
        const std::scoped_lock lock(m_count->mutex);
        ++m_count->running;
    }
    std::thread([count = m_count, work = std::move(work)]() mutable {
        work();
        work = nullptr; // what it owned is gone before it counts as ended
        const std::scoped_lock lock(count->mutex);
        --count->running;
        count->changed.notify_all();
    }).detach();
}

bool DetachedWorkers::waitForAll(std::chrono::milliseconds atMost) const
{
    std::unique_lock lock(m_count->mutex);
    return m_count->changed.wait_for(lock, atMost, [this] { return m_count->running == 0; });
}

} // namespace marvo
