// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "drives/player/FilmClock.h"

namespace marvo {

namespace {
/// From the command to play until the picture that was resting is due.
constexpr std::chrono::milliseconds startDelay{10};
constexpr std::chrono::milliseconds staleReportTime{60};
} // namespace

void FilmClock::start(std::int64_t filmMs, double rate, Moment now)
{
    m_baseMs = static_cast<double>(filmMs);
    m_rate = rate;
    m_start = now;
    m_base = now + startDelay;
    m_isReported = false;
}

void FilmClock::report(double filmMs, Moment at)
{
    if (at - m_start < staleReportTime)
        return;
    m_baseMs = filmMs;
    m_base = at;
    m_isReported = true;
}

void FilmClock::setRate(double rate, Moment now)
{
    m_baseMs = filmMsAt(now);
    m_base = now;
    m_rate = rate;
    m_isReported = false;
}

double FilmClock::filmMsAt(Moment moment) const
{
    return m_baseMs + std::chrono::duration<double, std::milli>(moment - m_base).count() * m_rate;
}

} // namespace marvo
