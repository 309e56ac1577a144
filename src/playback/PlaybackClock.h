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
/// Between two reports the time advances at the playback rate, but no longer than reports usually take.
/// After a seek it stays at the target until a report from there arrives, since older reports may still
/// come.
class PlaybackClock
{
public:
    void reset(const std::optional<AviHeader>& header = {});

    /// The length that the decoder found; it may be cut down to whole seconds.
    void setFoundLengthMs(std::int64_t lengthMs);
    /// The length by the pictures the film really has, and how long one picture lasts. It overrides any
    /// other.
    void setCountedLengthMs(std::int64_t lengthMs, double pictureMs);
    std::int64_t lengthMs() const { return m_lengthMs; }
    /// Where the last picture begins, or a little before. Later seeks find no picture.
    std::int64_t lastPictureMs() const;

    void setRate(float rate);
    float rate() const { return m_rate; }

    /// Starts or stops the time.
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
