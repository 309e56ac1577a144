// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <cstdint>

namespace marvo {

class MediaPlayer;
class MRVBlackBoxData;
class MRVMediaList;
class MRVPlayInfo;
class PlaybackHost;

/// The rules of playback: starting a recording together with the extraction of its data, play and pause,
/// seeking and jumps, speed, volume, window size steps, and moving on to the next recording at the end of
/// one. It knows the player and the window by their interfaces only. Main thread; the extraction runs on a
/// worker and reports back.
class PlaybackController : public QObject
{
    Q_OBJECT
public:
    /// None of the objects is owned; all must outlive the controller.
    PlaybackController(MediaPlayer& player, MRVMediaList& mediaList, MRVBlackBoxData& blackBoxData,
                       MRVPlayInfo& playInfo, PlaybackHost& host, QObject* parent = nullptr);
    ~PlaybackController() override;

    bool playAtIndex(std::int64_t index);
    bool playNext();
    /// Double click on a row of the recording list.
    void changeAndPlay(std::int64_t selectedRow);
    void stopPlay();
    /// Another folder is being opened: the player stops and a running extraction is abandoned.
    void stop();

    void clickPlayButton();
    void videoPositionSliderMoved(double sliderValue);
    void jumpForward();
    void jumpBackward();
    void increaseSpeed();
    void decreaseSpeed();
    void volumeSliderMoved(int volume);
    void volumeUp();
    void volumeDown();
    void sizeUp();
    void sizeDown();
    /// The window's content has changed its size.
    void updatePlayInfoScale();

    std::int64_t mediaIndex() const;
    int volume() const;
    bool waitingForPlayStart() const;

Q_SIGNALS:
    void volumeChanged(int volume);
    void mediaIndexChanged(std::int64_t index);
};

} // namespace marvo
