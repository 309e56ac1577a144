// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "playback/RecordingExtraction.h"

#include "support/FileSource.h"
#include "support/PacedSource.h"

#include <chrono>
#include <utility>

namespace marvo {

namespace {

/// A walk through gigabytes ends well within this.
constexpr std::chrono::seconds timeLimit{30};
constexpr std::chrono::milliseconds shutdownTimeout{500};

} // namespace

RecordingExtraction::RecordingExtraction(Take take, QObject* parent)
    : QObject(parent), m_take(std::move(take))
{
    m_timeLimit.setSingleShot(true);
    m_timeLimit.setInterval(timeLimit);
    connect(&m_timeLimit, &QTimer::timeout, this, [this] { m_end.request_stop(); });
}

RecordingExtraction::~RecordingExtraction()
{
    abandon();
    m_walk.waitForAll(shutdownTimeout); // it stops soon, unless it waits for the card
}

void RecordingExtraction::start(const std::string& path)
{
    m_timeLimit.start();
    m_end = std::stop_source();
    m_isCardShared = std::make_shared<std::atomic<bool>>(false);
    m_walk.start(
        [path, end = m_end.get_token(), isShared = m_isCardShared](const LatestRun& run) {
            MRVBlackBoxData data;
            FileSource file(path);
            PacedSource source(file, isShared, end);
            data.ExtractStreamInformation(source,
                                          run.stopToken()); // what it had read before a fault is shown
            return data;
        },
        [this](MRVBlackBoxData&& data) {
            m_timeLimit.stop();
            m_take(std::move(data));
        });
}

void RecordingExtraction::abandon()
{
    m_walk.abandon();
    m_timeLimit.stop();
}

} // namespace marvo
