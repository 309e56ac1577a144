// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "playback/PlaybackClock.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace marvo {

namespace {
/// Reports come every 250 ms; when they stay away much longer, the card is slow and the picture stands.
constexpr std::int64_t longestExtrapolationMs = 500;
/// A seek is shown within 140 ms; a report this far from its target is from before it.
constexpr std::int64_t seekToleranceMs = 400;
constexpr std::int64_t longestSeekMs = 1000;
/// Used when the header gives less or nothing possible.
constexpr double usualPictureMs = 40;
constexpr double longestPictureMs = 2000;
/// Decoders round times: a seek to the very beginning of the last picture may find nothing.
constexpr double lastPictureMargin = 1.25;
} // namespace

void PlaybackClock::reset(const std::optional<AviHeader>& header)
{
    m_header = header;
    m_lengthMs = header ? header->durationMsBeside(0) : 0;
    m_pictureMs = header ? static_cast<double>(header->microSecPerFrame) / 1000 : 0;
    m_isCounted = false;
    m_baseMs = 0;
    m_isRunning = false;
    m_isSeeking = false;
}

void PlaybackClock::setFoundLengthMs(std::int64_t lengthMs)
{
    if (m_isCounted)
        return;
    m_lengthMs = m_header ? m_header->durationMsBeside(lengthMs) : std::max<std::int64_t>(lengthMs, 0);
}

void PlaybackClock::setCountedLengthMs(std::int64_t lengthMs, double pictureMs)
{
    m_isCounted = true;
    m_lengthMs = lengthMs;
    m_pictureMs = pictureMs;
    m_baseMs = clamped(m_baseMs);
}

std::int64_t PlaybackClock::lastPictureMs() const
{
    const double pictureMs = std::clamp(m_pictureMs, usualPictureMs, longestPictureMs);
    return std::max<std::int64_t>(m_lengthMs - std::llround(pictureMs * lastPictureMargin), 0);
}

void PlaybackClock::setRate(float rate)
{
    m_baseMs = timeMs();
    m_sinceBase.start();
    m_rate = rate;
}

void PlaybackClock::run()
{
    m_isRunning = true;
    m_sinceBase.start();
}

void PlaybackClock::halt()
{
    m_baseMs = timeMs();
    m_isRunning = false;
}

void PlaybackClock::report(std::int64_t timeMs)
{
    if (m_isSeeking && m_sinceBase.elapsed() < longestSeekMs && std::abs(timeMs - m_baseMs) > seekToleranceMs)
        return;
    m_isSeeking = false;
    m_baseMs = clamped(timeMs);
    m_sinceBase.start();
}

void PlaybackClock::seek(std::int64_t timeMs)
{
    m_baseMs = clamped(timeMs);
    m_isSeeking = true;
    m_sinceBase.start();
}

std::int64_t PlaybackClock::timeMs() const
{
    if (!m_isRunning || m_isSeeking)
        return m_baseMs;
    const std::int64_t elapsedMs = std::min<std::int64_t>(m_sinceBase.elapsed(), longestExtrapolationMs);
    return clamped(m_baseMs + std::llround(static_cast<double>(elapsedMs) * static_cast<double>(m_rate)));
}

double PlaybackClock::position() const
{
    if (m_lengthMs <= 0)
        return 0;
    return std::clamp(static_cast<double>(timeMs()) / static_cast<double>(m_lengthMs), 0.0, 1.0);
}

std::int64_t PlaybackClock::clamped(std::int64_t timeMs) const
{
    const std::int64_t lowest = std::max<std::int64_t>(timeMs, 0);
    return m_lengthMs > 0 ? std::min(lowest, m_lengthMs) : lowest;
}

} // namespace marvo
