// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>

namespace marvo {

/// The time of a film that plays, to the millisecond.
///
/// libVLC tells the time some four times a second, each time at the moment when the picture of that time is
/// shown. Between two reports time goes on at the rate. Moments are given by the caller, so that a picture
/// can be asked about after it was shown.
class FilmClock
{
public:
    using Moment = std::chrono::steady_clock::time_point;

    /// The film begins to move from the picture that it rests on.
    void start(std::int64_t filmMs, double rate, Moment now);
    /// A report of libVLC's; those that come too soon after the start tell of the time before it.
    void report(double filmMs, Moment at);
    void setRate(double rate, Moment now);

    double rate() const { return m_rate; }
    /// Whether the time is libVLC's, not only reckoned from the start.
    bool isReported() const { return m_isReported; }
    double filmMsAt(Moment moment) const;

private:
    double m_baseMs = 0;
    double m_rate = 1;
    Moment m_base{};
    Moment m_start{};
    bool m_isReported = false;
};

} // namespace marvo
