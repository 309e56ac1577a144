// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "workers/DetachedWorkers.h"

#include <QTimer>

#include <cstdint>
#include <functional>
#include <memory>
#include <stop_token>
#include <string>

namespace marvo {

class MRVBlackBoxData;
template <typename Target>
class ObjectLink;

/// Walks one recording at a time for its samples, on a worker.
///
/// Each walk fills lists of its own, so that one that is no longer wanted need not be waited for.
class RecordingExtraction : public QObject
{
    Q_OBJECT
public:
    /// Takes the samples on this object's thread; empty lists when the walk took too long.
    using Take = std::function<void(MRVBlackBoxData&& data)>;

    explicit RecordingExtraction(Take take, QObject* parent = nullptr);
    ~RecordingExtraction() override;

    /// A walk still running is abandoned.
    void start(const std::string& path);
    /// What is running is told to stop and not heard any more.
    void abandon();
    bool isRunning() const { return m_timeLimit.isActive(); }

    void setTimeLimitMs(int milliseconds) { m_timeLimit.setInterval(milliseconds); }

private:
    void deliver(std::uint64_t generation, MRVBlackBoxData&& data);

    Take m_take;
    DetachedWorkers m_workers;
    std::shared_ptr<ObjectLink<RecordingExtraction>> m_link;
    std::stop_source m_stop;
    std::uint64_t m_generation = 0;
    QTimer m_timeLimit;
};

} // namespace marvo
