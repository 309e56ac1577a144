// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "recording/MRVBlackBoxData.h"
#include "workers/Latest.h"

#include <QTimer>

#include <atomic>
#include <functional>
#include <memory>
#include <stop_token>
#include <string>

namespace marvo {

/// Walks one recording at a time for its samples, on a worker.
///
/// Each walk fills lists of its own, so that one that is no longer wanted need not be waited for. One that
/// takes very long is stopped, and what it has read is handed over.
class RecordingExtraction : public QObject
{
    Q_OBJECT
public:
    /// Takes the samples on this object's thread.
    using Take = std::function<void(MRVBlackBoxData&& data)>;

    explicit RecordingExtraction(Take take, QObject* parent = nullptr);
    ~RecordingExtraction() override;

    /// A walk still running is abandoned.
    void start(const std::string& path);
    /// Asks the walk to stop and ignores its result.
    void abandon();
    bool isRunning() const { return m_walk.isRunning(); }
    /// The film plays from now on: the walk leaves it at least half of what the card gives.
    void shareCard() { *m_isCardShared = true; }

    void setTimeLimitMs(int milliseconds) { m_timeLimit.setInterval(milliseconds); }

private:
    Take m_take;
    Latest<MRVBlackBoxData> m_walk{this};
    std::stop_source m_end; ///< of the walk, whose result is wanted all the same
    std::shared_ptr<std::atomic<bool>> m_isCardShared;
    QTimer m_timeLimit;
};

} // namespace marvo
