// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "workers/DetachedWorkers.h"

#include <system_error>
#include <thread>
#include <utility>

namespace marvo {

void DetachedWorkers::start(std::function<void()> work)
{
    {
        const std::scoped_lock lock(m_count->mutex);
        ++m_count->running;
    }
    const auto shared = std::make_shared<std::function<void()>>(std::move(work));
    const auto run = [count = m_count, shared] {
        (*shared)();
        *shared = nullptr; // what it owned is gone before it counts as ended
        const std::scoped_lock lock(count->mutex);
        --count->running;
        count->changed.notify_all();
    };
    try {
        std::thread(run).detach();
    } catch (const std::system_error&) {
        run(); // the system has no thread to give: slow is better than not at all
    }
}

bool DetachedWorkers::waitForAll(std::chrono::milliseconds atMost) const
{
    std::unique_lock lock(m_count->mutex);
    return m_count->changed.wait_for(lock, atMost, [this] { return m_count->running == 0; });
}

} // namespace marvo
