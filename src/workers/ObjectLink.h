// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "workers/DetachedWorkers.h"
#include "workers/OutOfMemory.h"

#include <QMetaObject>

#include <memory>
#include <mutex>
#include <utility>

namespace marvo {

/// Lets another thread post calls to an object that may die meanwhile.
///
/// Shared by the object, which severs it before it dies, and by the threads that report to it. Posting never
/// waits for the object's thread; a call posted to a severed link goes nowhere.
template <typename Target>
class ObjectLink
{
public:
    explicit ObjectLink(Target* target) : m_target(target) {}

    /// Runs call(Target&) later on the target's thread.
    template <typename Call>
    void post(Call call)
    {
        const std::scoped_lock lock(m_mutex);
        if (Target* target = m_target)
            QMetaObject::invokeMethod(
                target, [target, call = std::move(call)]() mutable { call(*target); }, Qt::QueuedConnection);
    }

    void sever()
    {
        const std::scoped_lock lock(m_mutex);
        m_target = nullptr;
    }

private:
    std::mutex m_mutex;
    Target* m_target;
};

/// Runs `work`, which owns all it touches, on a worker that nobody waits for, and hands its result to
/// done(Target&, result) on the target's thread, unless the target is gone by then.
template <typename Target, typename Work, typename Done>
void runInBackground(DetachedWorkers& workers, std::shared_ptr<ObjectLink<Target>> link, Work work, Done done)
{
    workers.start([link = std::move(link), work = std::move(work), done = std::move(done)]() mutable {
        link->post([done = std::move(done), result = resultOf(work)](Target& target) mutable {
            done(target, std::move(result));
        });
    });
}

} // namespace marvo
