// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace marvo {

class MainViews;
class MediaPlayer;
class MRVPlayInfo;
class PlaybackController;

/// Joins the play state to the views that show it and to the controls that change it: both position sliders,
/// graph, volume, labels and times.
class PlaybackViews : public QObject
{
    Q_OBJECT
public:
    /// The objects are not owned and must outlive this one.
    PlaybackViews(MainViews& views, MediaPlayer& player, MRVPlayInfo& playInfo, PlaybackController& playback);

    /// The window's content has another size.
    void contentResized();

private:
    void joinSliders();
    void seek(double positionFraction);
    void showPlayTime();
    void catchUpWithScale();
    void volumeWheeled(int steps);

    MainViews& m_views;
    MediaPlayer& m_player;
    MRVPlayInfo& m_playInfo;
    PlaybackController& m_playback;
    bool m_scaleIsDue = false; ///< the size label waits for something to play
};

} // namespace marvo
