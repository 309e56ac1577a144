// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "playback/RecordingExtraction.h"

#include <QObject>
#include <QTimer>

#include <cstdint>
#include <functional>

namespace marvo {

class MediaPlayer;
class MRVBlackBoxData;
class MRVMediaList;
class MRVPlayInfo;
class PlaybackHost;

/// The delays of the playback rules, in milliseconds.
struct PlaybackTimings
{
    int walkMs = 500;            ///< how long a start waits for the recording's data
    int endCheckMs = 1000;       ///< between two checks for the recording's end
    int playNextMs = 1000;       ///< from the end seen to the next recording
    int playAfterSeekMs = 100;   ///< from a seek away from the end to playing
    int seekBackRepeatMs = 100;  ///< a slider's seek backwards is made twice
    int seekBackSettledMs = 200; ///< and settles this long after the second
    int seekSettledMs = 300;     ///< after a slider's seek forwards and a jump forwards
    int jumpBackRepeatMs = 200;  ///< a jump backwards is made twice
    int jumpBackSettledMs = 100; ///< and settles this long after the second
};

/// The rules of playback: starting a recording together with the extraction of its data, play and pause,
/// seeking and jumps, speed, volume, window size steps, and moving on to the next recording at the end of
/// one. It knows the player and the window by their interfaces only. Main thread; the extraction runs on a
/// worker and reports back.
class PlaybackController : public QObject
{
    Q_OBJECT
public:
    /// The objects are not owned and must outlive the controller.
    PlaybackController(MediaPlayer& player, MRVMediaList& mediaList, MRVBlackBoxData& blackBoxData,
                       MRVPlayInfo& playInfo, PlaybackHost& host, QObject* parent = nullptr);
    ~PlaybackController() override;

    /// Starts the recording of a row; an index outside the list stands for its nearest row. False, and
    /// nothing done, when the list is empty or another start is under way.
    bool playAtIndex(std::int64_t index);
    /// False at the end of the list.
    bool playNext();
    /// Double click on a row of the recording list. The recording that the player holds plays, from the
    /// beginning when it rests; any other is started.
    void changeAndPlay(std::int64_t selectedRow);
    /// The window closes: the player pauses and lets go of its file, and what is under way is abandoned.
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

    std::int64_t mediaIndex() const { return m_mediaIndex; } ///< -1 until a recording has been chosen
    int volume() const { return m_volume; }                  ///< 0 to 200
    bool waitingForPlayStart() const { return m_waitingForPlayStart; }

    /// Whether a recording that follows another by itself leaves the window as it is: its size, and full
    /// screen.
    void setKeepsWindow(bool keeps) { m_keepsWindow = keeps; }
    void setTimings(const PlaybackTimings& timings) { m_timings = timings; }

Q_SIGNALS:
    /// The player rests and shows the picture of its own position, which the play state has now, too; it may
    /// have had that position before the picture came. Or the recording's data have arrived while it plays.
    void momentShown();
    void volumeChanged(int volume);
    /// A recording is starting. In a new list its row may have the same number as before.
    void mediaIndexChanged(std::int64_t index);

private:
    void mediaPlayerStateChanged();
    void mediaPlayerTimeChanged();
    void mediaPlayerFailed(const QString& reason);

    void startTimerPlayNext();
    void timerPlayNext();
    void updateVideoUI();
    void installData(MRVBlackBoxData&& data);
    void startFilm();
    void mediaPlayerLost();
    void initMediaControlView();
    void didStartPlayer();
    void didFinishPlay();
    void chooseAudioAuto();
    void updateAudioUI();
    void setVideoScaleIndex(int step);
    void syncVideoPositionDelay(int delayMs);
    void showRestingMoment();

    bool isPlaying() const;
    bool hasAudio() const;
    bool isAtEnd() const;
    bool isPlayersRow(std::int64_t row) const;
    void setVolume(int volume);
    void setMediaIndex(std::int64_t index);
    void showVideo();
    void abandonStart();
    void after(int delayMs, std::function<void()> step);
    void dropDelayedSteps();

    MediaPlayer& m_player;
    MRVMediaList& m_mediaList;
    MRVBlackBoxData& m_blackBoxData;
    MRVPlayInfo& m_playInfo;
    PlaybackHost& m_host;

    RecordingExtraction m_extraction;
    PlaybackTimings m_timings;
    QTimer m_playStopTimer;
    std::uint64_t m_stepGeneration = 0; ///< delayed steps of an older one are not taken
    std::int64_t m_mediaIndex = -1;
    double m_movingPosition = 0;
    int m_volume = 70;
    int m_timeChangeCount = -1; ///< thins the position updates
    bool m_waitingForPlayStart = false;
    bool m_isFilmHeld = false; ///< the film waits for the data
    bool m_preparingPlayNext = false;
    bool m_moving = false;
    bool m_keepsWindow = false;
    bool m_followsByItself = false; ///< the recording that starts
};

} // namespace marvo
