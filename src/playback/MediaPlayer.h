// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSize>
#include <QString>

#include <cstdint>
#include <string>

namespace marvo {

/// What the playback rules need of a player, so that they can be tested without a film.
///
/// All operations and signals belong to the main thread. Times are milliseconds, positions fractions from 0
/// to 1 of the media's length. At the end of a media the player rests in Paused at position 1.0, showing the
/// last frame.
class MediaPlayer : public QObject
{
    Q_OBJECT
public:
    enum class State { Idle, Opening, Playing, Paused, Stopped, Failed };
    Q_ENUM(State)

    using QObject::QObject;

    /// Sets a file, not yet started (a path as bytes, since a card's names need not be UTF-8). An empty
    /// path removes the media. What was playing stops and sends no more signals.
    virtual void setMedia(const std::string& path) = 0;
    virtual bool hasMedia() const = 0;
    virtual std::string mediaPath() const = 0;

    virtual void play() = 0;
    virtual void pause() = 0;
    virtual void stop() = 0;
    virtual State state() const = 0;
    bool isPlaying() const { return state() == State::Playing; }
    bool isPaused() const { return state() == State::Paused; }

    virtual double position() const = 0;
    virtual void setPosition(double positionFraction) = 0;
    virtual std::int64_t timeMs() const = 0;
    virtual void setTimeMs(std::int64_t timeMs) = 0;
    virtual std::int64_t lengthMs() const = 0;
    /// Current time minus length: negative while time remains.
    std::int64_t remainingTimeMs() const { return timeMs() - lengthMs(); }
    virtual void jumpForward(int seconds) = 0;

    virtual float rate() const = 0;
    virtual void setRate(float rate) = 0;
    virtual void setVolume(int percent) = 0; ///< 0 to 200
    virtual void setMuted(bool muted) = 0;
    virtual int audioTrackCount() const = 0;

    virtual bool hasVideoOut() const = 0;
    virtual QSize videoSize() const = 0;

Q_SIGNALS:
    void stateChanged();
    void timeChanged();
    /// The media could not be opened, holds no picture, or broke before its first one; a reason for the user.
    void failed(const QString& reason);
    /// The media ended well before its end, and its file cannot be read any more.
    void lost();
};

} // namespace marvo
