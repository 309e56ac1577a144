// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace marvo {

/// The observable play state of the recording in the player. Every change of a property, and only a change,
/// is signalled.
class MRVPlayInfo : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool isPlaying READ isPlaying WRITE setIsPlaying NOTIFY isPlayingChanged)
    Q_PROPERTY(int audioMediaDirection READ audioMediaDirection WRITE setAudioMediaDirection NOTIFY
                   audioMediaDirectionChanged)
    Q_PROPERTY(double position READ position WRITE setPosition NOTIFY positionChanged)
    Q_PROPERTY(double speed READ speed WRITE setSpeed NOTIFY speedChanged)
    Q_PROPERTY(double scale READ scale WRITE setScale NOTIFY scaleChanged)
public:
    using QObject::QObject;

    bool isPlaying() const { return m_isPlaying; }
    void setIsPlaying(bool playing);
    /// 0 front, 1 rear, 2 no sound or unknown.
    int audioMediaDirection() const { return m_audioMediaDirection; }
    void setAudioMediaDirection(int direction);
    /// Fraction of the recording, 0 to 1.
    double position() const { return m_position; }
    void setPosition(double positionFraction);
    /// 1.0 or 2.0.
    double speed() const { return m_speed; }
    void setSpeed(double speed);
    /// Height of the video area by the video's own height; 0 until first measured.
    double scale() const { return m_scale; }
    void setScale(double scale);

Q_SIGNALS:
    void isPlayingChanged(bool playing);
    void audioMediaDirectionChanged(int direction);
    void positionChanged(double positionFraction);
    void speedChanged(double speed);
    void scaleChanged(double scale);

private:
    bool m_isPlaying = false;
    int m_audioMediaDirection = 2;
    double m_position = 0;
    double m_speed = 1;
    double m_scale = 0;
};

} // namespace marvo
