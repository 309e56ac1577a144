// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "playback/MRVPlayInfo.h"

namespace marvo {

void MRVPlayInfo::setIsPlaying(bool playing)
{
    if (m_isPlaying == playing)
        return;
    m_isPlaying = playing;
    Q_EMIT isPlayingChanged(playing);
}

void MRVPlayInfo::setAudioMediaDirection(int direction)
{
    if (m_audioMediaDirection == direction)
        return;
    m_audioMediaDirection = direction;
    Q_EMIT audioMediaDirectionChanged(direction);
}

void MRVPlayInfo::setPosition(double positionFraction)
{
    if (m_position == positionFraction)
        return;
    m_position = positionFraction;
    Q_EMIT positionChanged(positionFraction);
}

void MRVPlayInfo::setSpeed(double speed)
{
    if (m_speed == speed)
        return;
    m_speed = speed;
    Q_EMIT speedChanged(speed);
}

void MRVPlayInfo::setScale(double scale)
{
    if (m_scale == scale)
        return;
    m_scale = scale;
    Q_EMIT scaleChanged(scale);
}

} // namespace marvo
