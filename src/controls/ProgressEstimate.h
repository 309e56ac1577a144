// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <chrono>
#include <optional>

namespace marvo {

/// Estimates the remaining time from the progress of the last 3.5 to 7 seconds.
class ProgressEstimate
{
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    /// How far a bar has come: a value in a range.
    struct Progress
    {
        double value = 0;
        double minimum = 0;
        double maximum = 100;

        /// The part done, 0 to 1; 0 for a range without width.
        double fraction() const;
    };

    /// Takes the progress at a time, not earlier than that of the previous call. Returns true when a new
    /// estimate begins, which makes the last one invalid.
    bool update(const Progress& progress, TimePoint now);

    /// Seconds left, judged by the last update. None in the first half second, and none without progress
    /// since the window of the estimate began.
    std::optional<double> remainingSeconds() const { return m_remainingSeconds; }

    /// The text for a number of seconds, such as "About ten minutes remaining".
    static QString phrase(double remainingSeconds);

private:
    struct Window
    {
        TimePoint startTime;
        double startFraction = 0;
    };

    std::optional<Window> m_current; ///< the estimate is measured from its start
    std::optional<Window> m_next;    ///< takes its place when it is long enough
    std::optional<double> m_remainingSeconds;
};

} // namespace marvo
