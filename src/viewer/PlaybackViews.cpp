// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/PlaybackViews.h"

#include "controls/FractionSlider.h"
#include "playback/MediaPlayer.h"
#include "playback/MRVPlayInfo.h"
#include "playback/PlaybackController.h"
#include "texts/Localisation.h"
#include "texts/PlayTimeText.h"
#include "viewer/FullScreenControlBar.h"
#include "viewer/MainViews.h"
#include "viewer/MediaControlBox.h"
#include "viewer/panel/GraphView.h"
#include "viewer/VideoNotice.h"

namespace marvo {

PlaybackViews::PlaybackViews(MainViews& views, MediaPlayer& player, MRVPlayInfo& playInfo,
                             PlaybackController& playback)
    : m_views(views), m_player(player), m_playInfo(playInfo), m_playback(playback)
{
    MediaControlBox* controls = views.mediaControlBox;
    FullScreenControlBar* bar = views.mediaControlBoxForFullScreen;
    connect(&playInfo, &MRVPlayInfo::speedChanged, controls, &MediaControlBox::showSpeed);
    connect(&playInfo, &MRVPlayInfo::scaleChanged, controls, &MediaControlBox::showScale);
    connect(&playInfo, &MRVPlayInfo::isPlayingChanged, controls, &MediaControlBox::showPlaying);
    connect(&playInfo, &MRVPlayInfo::isPlayingChanged, bar, &FullScreenControlBar::showPlaying);
    connect(&playInfo, &MRVPlayInfo::positionChanged, this, &PlaybackViews::showPlayTime);
    connect(&player, &MediaPlayer::stateChanged, this, &PlaybackViews::showPlayTime);
    connect(&player, &MediaPlayer::timeChanged, this, &PlaybackViews::catchUpWithScale);
    joinSliders();
    connect(views.graphView, &GraphView::seekRequested, this, &PlaybackViews::seek);
    connect(&views, &MainViews::videoWheeled, this, &PlaybackViews::volumeWheeled);
    connect(&playback, &PlaybackController::volumeChanged, views.videoNotice,
            [this](int volume) { m_views.videoNotice->tell(localised("folders.volume").arg(volume)); });
}

void PlaybackViews::joinSliders()
{
    const auto timeAt = [this](double position) {
        const std::int64_t length = m_player.lengthMs();
        return length > 0 ? playTimeText(static_cast<std::int64_t>(position * static_cast<double>(length)))
                          : QString();
    };
    for (FractionSlider* slider :
         {m_views.mediaControlBox->videoPositionSlider(),
          m_views.mediaControlBoxForFullScreen->videoPositionSliderForFullScreen()}) {
        connect(&m_playInfo, &MRVPlayInfo::positionChanged, slider, &FractionSlider::setFraction);
        connect(slider, &FractionSlider::userMoved, this, &PlaybackViews::seek);
        slider->setHoverText(timeAt);
    }
    connect(m_views.mediaControlBox->volumeSlider(), &FractionSlider::userMoved, this,
            [this](double value) { m_playback.volumeSliderMoved(static_cast<int>(value)); });
}

void PlaybackViews::seek(double positionFraction)
{
    m_playInfo.setPosition(positionFraction);
    m_playback.videoPositionSliderMoved(positionFraction);
}

void PlaybackViews::contentResized()
{
    m_playback.updatePlayInfoScale();
    m_scaleIsDue = !m_player.isPlaying();
}

/// While nothing plays the scale is not measured. It is measured as soon as something does.
void PlaybackViews::catchUpWithScale()
{
    if (!m_scaleIsDue || !m_player.isPlaying())
        return;
    m_scaleIsDue = false;
    m_playback.updatePlayInfoScale();
}

void PlaybackViews::volumeWheeled(int steps)
{
    for (; steps > 0; --steps)
        m_playback.volumeUp();
    for (; steps < 0; ++steps)
        m_playback.volumeDown();
}

void PlaybackViews::showPlayTime()
{
    const std::int64_t length = m_player.lengthMs();
    const auto time = static_cast<std::int64_t>(m_playInfo.position() * static_cast<double>(length));
    m_views.mediaControlBox->showTime(time, length);
    m_views.mediaControlBoxForFullScreen->showTime(time, length);
}

} // namespace marvo
