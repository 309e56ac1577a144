// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaObject>

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

} // namespace marvo
