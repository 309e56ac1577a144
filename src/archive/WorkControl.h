// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <mutex>
#include <stop_token>

namespace marvo {

/// How a window holds and cancels a long piece of work that runs on another thread. Any thread.
class WorkControl
{
public:
    WorkControl() = default;
    explicit WorkControl(std::stop_token stop) : m_stop(std::move(stop)) {}

    void pause() { setPaused(true); }
    void resume() { setPaused(false); }

    /// For the work: returns at once, or when the pause is over. False when it was cancelled.
    bool mayGoOn()
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, m_stop, [this] { return !m_isPaused; });
        return !m_stop.stop_requested();
    }
    bool isCancelled() const { return m_stop.stop_requested(); }

private:
    void setPaused(bool paused)
    {
        const std::lock_guard lock(m_mutex);
        m_isPaused = paused;
        m_changed.notify_all();
    }

    std::stop_token m_stop;
    std::mutex m_mutex;
    std::condition_variable_any m_changed;
    bool m_isPaused = false;
};

} // namespace marvo
