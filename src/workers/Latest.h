// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "workers/DetachedWorkers.h"
#include "workers/OutOfMemory.h"

#include <QMetaObject>
#include <QObject>

#include <chrono>
#include <memory>
#include <mutex>
#include <stop_token>
#include <utility>

namespace marvo {

/// The worker's side of a run: how it reports to its owner. The work may keep it.
class LatestRun
{
public:
    explicit LatestRun(QObject* owner) : m_shared(std::make_shared<Shared>(owner)) {}

    /// Requested as soon as nobody waits for the result any more.
    std::stop_token stopToken() const { return m_shared->stop.get_token(); }
    /// Runs call() later on the owner's thread, unless the work is abandoned by then. Any thread; never waits
    /// for the owner's.
    template <typename Call>
    void post(Call call) const
    {
        const std::scoped_lock lock(m_shared->mutex);
        if (m_shared->owner == nullptr)
            return;
        auto run = [shared = m_shared, call = std::move(call)]() mutable {
            if (!shared->stop.stop_requested())
                call();
        };
        QMetaObject::invokeMethod(m_shared->owner, std::move(run), Qt::QueuedConnection);
    }
    /// From now on nothing that was or will be posted runs. Only on the owner's thread.
    void abandon() const
    {
        m_shared->stop.request_stop();
        const std::scoped_lock lock(m_shared->mutex);
        m_shared->owner = nullptr;
    }

private:
    struct Shared
    {
        explicit Shared(QObject* receiver) : owner(receiver) {}
        std::stop_source stop;
        std::mutex mutex;
        QObject* owner; ///< null once abandoned, so that it may die
    };
    std::shared_ptr<Shared> m_shared;
};

/// Work of one kind on a worker, of which only the latest counts.
///
/// A start supersedes the run before: that one is asked to stop, and nothing it posts arrives any more.
/// Neither side waits for the other, except in waitForAll(), so a card that does not answer blocks nothing.
/// The work must own all data it uses.
template <typename Result>
class Latest
{
public:
    /// Results arrive on the thread of the owner, which owns this object, too.
    explicit Latest(QObject* owner) : m_owner(owner) {}
    ~Latest() { abandon(); }
    Latest(const Latest&) = delete;
    Latest& operator=(const Latest&) = delete;

    /// Runs work(const LatestRun&) on a worker, then done(Result) on the owner's thread, or never.
    template <typename Work, typename Done>
    void start(Work work, Done done)
    {
        abandon();
        m_run = std::make_unique<LatestRun>(m_owner);
        m_workers.start([this, run = *m_run, work = std::move(work), done = std::move(done)]() mutable {
            auto result = std::make_shared<Result>(resultOf(work, run));
            // What is posted runs only while this object lives: its end abandons the run.
            run.post([this, result = std::move(result), done = std::move(done)]() mutable {
                m_run.reset();
                done(std::move(*result));
            });
        });
    }
    /// Asks the current run to stop and ignores its result.
    void abandon()
    {
        if (m_run)
            m_run->abandon();
        m_run.reset();
    }
    /// Until the result has arrived.
    bool isRunning() const { return m_run != nullptr; }
    /// False when some work, abandoned or not, was still going on when the time was up.
    bool waitForAll(std::chrono::milliseconds atMost) const { return m_workers.waitForAll(atMost); }

private:
    QObject* m_owner;
    std::unique_ptr<LatestRun> m_run; ///< the one whose result is waited for
    DetachedWorkers m_workers;
};

} // namespace marvo
