// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/ProgressEstimate.h"

#include "texts/Localisation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>

namespace marvo {

namespace {

using Seconds = std::chrono::duration<double>;

constexpr Seconds windowLength{3.5};
constexpr Seconds shortestEstimate{0.5};
constexpr double startTolerance = 0.00001; ///< a value this close to the minimum is a restart

struct Phrase
{
    double above; ///< seconds
    const char* key;
};

/// The first row whose bound the seconds exceed applies.
constexpr std::array phrases{
    Phrase{555, "progress.ten_minutes"},   Phrase{495, "progress.nine_minutes"},
    Phrase{435, "progress.eight_minutes"}, Phrase{375, "progress.seven_minutes"},
    Phrase{315, "progress.six_minutes"},   Phrase{255, "progress.five_minutes"},
    Phrase{195, "progress.four_minutes"},  Phrase{135, "progress.three_minutes"},
    Phrase{75, "progress.two_minutes"},    Phrase{50, "progress.one_minute"},
    Phrase{10, "progress.under_a_minute"}, Phrase{5, "progress.ten_seconds"},
};
constexpr double countedMinutesAbove = 615; ///< seconds; above it the minutes are a number

/// Rounds to microseconds, so that a rounding error of the division does not pick the wrong phrase.
double withoutNoise(double seconds) { return std::round(seconds * 1e6) / 1e6; }

} // namespace

double ProgressEstimate::Progress::fraction() const
{
    const double width = maximum - minimum;
    return width > 0 ? (value - minimum) / width : 0;
}

bool ProgressEstimate::update(const Progress& progress, TimePoint now)
{
    // The start of a window is stored as a fraction of the maximum, so estimates need a minimum of 0.
    const Window window{.startTime = now, .startFraction = progress.value / progress.maximum};
    if (progress.value < progress.minimum + startTolerance) {
        m_current.reset();
        m_next.reset();
    }
    const bool begins = !m_current;
    if (begins)
        m_current = window;
    if (now - m_current->startTime > windowLength && !m_next)
        m_next = window;
    if (m_next && now - m_next->startTime > windowLength) {
        m_current = m_next;
        m_next.reset();
    }

    m_remainingSeconds.reset();
    const Seconds elapsed = now - m_current->startTime;
    if (elapsed > shortestEstimate) {
        const double speed = (progress.fraction() - m_current->startFraction) / elapsed.count();
        if (speed > 0 && std::isfinite(speed))
            m_remainingSeconds = withoutNoise((1 - progress.fraction()) / speed);
    }
    return begins;
}

QString ProgressEstimate::phrase(double remainingSeconds)
{
    if (remainingSeconds > countedMinutesAbove) {
        constexpr double mostMinutes = std::numeric_limits<std::int32_t>::max();
        const double minutes = std::min(remainingSeconds / 60 + 0.75, mostMinutes);
        return localised("progress.minutes").arg(static_cast<std::int32_t>(minutes));
    }
    const auto row = std::find_if(phrases.begin(), phrases.end(),
                                  [&](const Phrase& phrase) { return remainingSeconds > phrase.above; });
    return localised(row != phrases.end() ? row->key : "progress.five_seconds");
}

} // namespace marvo
