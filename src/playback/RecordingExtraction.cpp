// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "playback/RecordingExtraction.h"

#include "recording/MRVBlackBoxData.h"
#include "workers/ObjectLink.h"

#include <chrono>
#include <utility>

namespace marvo {

namespace {
/// A walk through gigabytes ends well within this; a card that does not answer keeps the film from nobody
/// longer.
constexpr int TimeLimitMs = 30'000;
constexpr std::chrono::milliseconds LongestFarewell{500};
} // namespace

RecordingExtraction::RecordingExtraction(Take take, QObject* parent)
    : QObject(parent),
      m_take(std::move(take)),
      m_link(std::make_shared<ObjectLink<RecordingExtraction>>(this))
{
    m_timeLimit.setSingleShot(true);
    m_timeLimit.setInterval(TimeLimitMs);
    connect(&m_timeLimit, &QTimer::timeout, this, [this] {
        abandon();
        m_take(MRVBlackBoxData());
    });
}

RecordingExtraction::~RecordingExtraction()
{
    m_link->sever();
    abandon();
    m_workers.waitForAll(LongestFarewell); // it stops soon, unless it waits for the card
}

void RecordingExtraction::start(const std::string& path)
{
    abandon();
    m_stop = std::stop_source();
    m_timeLimit.start();
    m_workers.start([link = m_link, generation = m_generation, stop = m_stop.get_token(), path] {
        auto data = std::make_shared<MRVBlackBoxData>();
        data->ExtractStreamInformation(path, stop); // what it had read before a fault is shown
        link->post([generation, data = std::move(data)](RecordingExtraction& extraction) {
            extraction.deliver(generation, std::move(*data));
        });
    });
}

void RecordingExtraction::abandon()
{
    ++m_generation;
    m_stop.request_stop();
    m_timeLimit.stop();
}

void RecordingExtraction::deliver(std::uint64_t generation, MRVBlackBoxData&& data)
{
    if (generation != m_generation || !isRunning())
        return;
    m_timeLimit.stop();
    m_take(std::move(data));
}

} // namespace marvo
