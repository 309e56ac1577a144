// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "recording/MRVBlackBoxData.h"
#include "workers/Latest.h"

#include <QTimer>

#include <functional>
#include <string>

namespace marvo {

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
    bool isRunning() const { return m_walk.isRunning(); }

    void setTimeLimitMs(int milliseconds) { m_timeLimit.setInterval(milliseconds); }

private:
    Take m_take;
    Latest<MRVBlackBoxData> m_walk{this};
    QTimer m_timeLimit;
};

} // namespace marvo
