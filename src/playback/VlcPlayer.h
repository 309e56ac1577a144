// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "playback/MediaPlayer.h"
#include "playback/PlaybackClock.h"
#include "workers/DetachedWorkers.h"

#include <QElapsedTimer>
#include <QImage>
#include <QPointer>
#include <QTimer>

#include <cstdint>
#include <memory>
#include <optional>
#include <stop_token>

namespace marvo {

class VideoView;
class VlcSession;
struct VlcEvent;
template <typename Target>
class ObjectLink;

/// A media player on libVLC 3, painting into a VideoView.
///
/// Everything that could wait for a card runs on workers: reading the file, creating the libVLC player, and
/// ending it. A start that is overtaken is abandoned with its session. Playing is reported with the first
/// picture on the view, so that a file that yields none ends in failed() instead.
class VlcPlayer : public MediaPlayer
{
    Q_OBJECT
public:
    /// The view is not owned and may go first; null plays without showing.
    explicit VlcPlayer(VideoView* view, QObject* parent = nullptr);
    ~VlcPlayer() override;

    void setMedia(const std::string& path) override;
    bool hasMedia() const override { return !m_path.empty(); }
    std::string mediaPath() const override { return m_path; }

    /// At the end of the media it starts again from the beginning, unless a seek came between.
    void play() override;
    void pause() override;
    void stop() override;
    State state() const override { return m_state; }

    double position() const override;
    void setPosition(double positionFraction) override;
    std::int64_t timeMs() const override;
    /// A time at or past the length is the end: the last picture, at position 1.0.
    void setTimeMs(std::int64_t timeMs) override;
    std::int64_t lengthMs() const override { return m_clock.lengthMs(); }
    void jumpForward(int seconds) override;

    float rate() const override { return m_clock.rate(); }
    void setRate(float rate) override;
    void setVolume(int percent) override;
    void setMuted(bool muted) override;
    int audioTrackCount() const override;

    bool hasVideoOut() const override;
    QSize videoSize() const override;
    /// The picture shown, in the video's own size; null while there is none.
    QImage currentFrame() const;

    /// How long a start may take before it counts as failed; 15 s unless told.
    void setStartTimeoutMs(int milliseconds) { m_startTimer.setInterval(milliseconds); }

private:
    struct Prepared;

    void prepare();
    void adopt(std::uint64_t generation, Prepared prepared);
    void startSession();
    void handle(std::uint64_t generation, const VlcEvent& event);
    void handleFrame();
    void handlePlaying();
    void handlePaused();
    void handleEnd();
    void lookWhyItEnded();
    void endHere();
    void rest();
    void fail(const char* reasonKey);
    void retire();
    void setState(State state);
    void sendSeek();
    void sendPause();
    void checkSeekInPause();
    void notifyTimeSoon();
    void applyVolume();

    QPointer<VideoView> m_view;
    std::string m_path;
    State m_state = State::Idle;

    DetachedWorkers m_workers;
    std::shared_ptr<ObjectLink<VlcPlayer>> m_link;
    std::uint64_t m_generation = 0; ///< of the session now wanted; what an older one reports is dropped
    std::shared_ptr<VlcSession> m_session;
    std::stop_source m_preparing;
    int m_readAheadMs = 0;                    ///< libVLC, before it shows a picture in pause
    const char* m_preparationFault = nullptr; ///< the text key, kept until play() asks for it

    PlaybackClock m_clock;
    std::optional<std::int64_t> m_unsentSeekMs;
    std::optional<std::int64_t> m_lastSeekMs;
    QElapsedTimer m_sinceLastSeek;
    QElapsedTimer m_sincePause;
    bool m_isSeekShown = true; ///< a picture has come since the last seek
    int m_timeReportsBeforeFrame = 0;
    bool m_isPreparing = false;
    bool m_isStarted = false;   ///< libVLC has been told to play
    bool m_isEnded = false;     ///< libVLC has let go of the file: only a new session can play it
    bool m_atEnd = false;       ///< resting on the last picture
    int m_unreportedPauses = 0; ///< how often libVLC has been told to pause and has not said that it does
    /// What libVLC is wanted to do. ShowEnd: to play out the last pictures while the player rests at the end,
    /// since a seek to them is not shown in pause.
    enum class Intent { Play, Pause, ShowEnd };
    Intent m_intent = Intent::Pause;

    QTimer m_startTimer;
    QTimer m_clockTimer; ///< between libVLC's own time reports, which come four times a second
    QTimer m_seekTimer;  ///< while it runs, seeks are gathered
    QTimer m_seekCheckTimer;
    QTimer m_lookTimer; ///< the file must answer before it has run
    bool m_isTimeNotificationPosted = false;
    int m_volume = 70;
    bool m_isMuted = false;
};

} // namespace marvo
