// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "media/AviHeader.h"

#include <QElapsedTimer>

#include <cstdint>
#include <optional>

namespace marvo {

/// The play time of one media, made of what the decoder reports some times a second.
///
/// Between two reports time goes on at the playback rate, for as long as reports usually take to come. After
/// a seek it stands at the target until a report from there arrives, since reports from before the seek may
/// still be on their way.
class PlaybackClock
{
public:
    void reset(const std::optional<AviHeader>& header = {});

    /// The length that the decoder found; it may be cut down to whole seconds.
    void setFoundLengthMs(std::int64_t lengthMs);
    /// The length by the pictures that the film really has, which counts from now on, and how long one of
    /// them is shown.
    void setCountedLengthMs(std::int64_t lengthMs, double pictureMs);
    std::int64_t lengthMs() const { return m_lengthMs; }
    /// Where the last picture begins, or a little before: a seek to there or sooner finds one.
    std::int64_t lastPictureMs() const;

    void setRate(float rate);
    float rate() const { return m_rate; }

    /// Starts or stops time going on by itself.
    void run();
    void halt();

    void report(std::int64_t timeMs);
    void seek(std::int64_t timeMs);

    /// 0 to the length.
    std::int64_t timeMs() const;
    /// 0 to 1; 0 while the length is unknown.
    double position() const;

private:
    std::int64_t clamped(std::int64_t timeMs) const;

    std::optional<AviHeader> m_header;
    std::int64_t m_lengthMs = 0;
    double m_pictureMs = 0; ///< 0 while unknown
    bool m_isCounted = false;
    std::int64_t m_baseMs = 0;
    float m_rate = 1;
    bool m_isRunning = false;
    bool m_isSeeking = false;
    QElapsedTimer m_sinceBase;
};

} // namespace marvo
