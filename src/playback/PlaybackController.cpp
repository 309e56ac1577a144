// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "playback/PlaybackController.h"

#include "media/MRVMediaList.h"
#include "playback/MediaPlayer.h"
#include "playback/MRVPlayInfo.h"
#include "playback/PlaybackHost.h"
#include "playback/PlaybackSteps.h"
#include "playback/WindowStep.h"
#include "recording/MRVBlackBoxData.h"

#include <QLoggingCategory>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace marvo {

namespace {

Q_LOGGING_CATEGORY(playbackLog, "marvo.playback")

constexpr double endPosition = 0.998;
constexpr double jumpMs = jumpSeconds * 1000.0;
constexpr int volumeStep = 10;
constexpr int largestVolume = 200;
constexpr double largestSpeed = 2;
constexpr int timeChangesPerPosition = 3;

/// "mm:ss" or "h:mm:ss" of whole seconds, truncated toward zero.
QString timeText(std::int64_t milliseconds)
{
    const std::int64_t seconds = milliseconds / 1000;
    const std::int64_t magnitude = std::abs(seconds);
    const QString sign = seconds < 0 ? QStringLiteral("-") : QString();
    const QString minutesAndSeconds = QStringLiteral("%1:%2")
                                          .arg(magnitude / 60 % 60, 2, 10, QLatin1Char('0'))
                                          .arg(magnitude % 60, 2, 10, QLatin1Char('0'));
    if (magnitude < 3600)
        return sign + minutesAndSeconds;
    return sign + QStringLiteral("%1:%2").arg(magnitude / 3600).arg(minutesAndSeconds);
}

} // namespace

PlaybackController::PlaybackController(MediaPlayer& player, MRVMediaList& mediaList,
                                       MRVBlackBoxData& blackBoxData, MRVPlayInfo& playInfo,
                                       PlaybackHost& host, QObject* parent)
    : QObject(parent),
      m_player(player),
      m_mediaList(mediaList),
      m_blackBoxData(blackBoxData),
      m_playInfo(playInfo),
      m_host(host),
      m_extraction([this](MRVBlackBoxData&& data) { installData(std::move(data)); })
{
    connect(&m_player, &MediaPlayer::stateChanged, this, &PlaybackController::mediaPlayerStateChanged);
    connect(&m_player, &MediaPlayer::timeChanged, this, &PlaybackController::mediaPlayerTimeChanged);
    connect(&m_player, &MediaPlayer::failed, this, &PlaybackController::mediaPlayerFailed);
    connect(&m_player, &MediaPlayer::lost, this, &PlaybackController::mediaPlayerLost);
    connect(&m_playInfo, &MRVPlayInfo::audioMediaDirectionChanged, this, &PlaybackController::updateAudioUI);
    connect(&m_playStopTimer, &QTimer::timeout, this, &PlaybackController::timerPlayNext);
    m_player.setMuted(false);
    m_player.setVolume(m_volume);
}

PlaybackController::~PlaybackController() = default;

// Starting a recording

bool PlaybackController::playAtIndex(std::int64_t index)
{
    if (m_mediaList.count() == 0 || m_waitingForPlayStart)
        return false;
    m_waitingForPlayStart = true;
    m_followsByItself = false;
    dropDelayedSteps();
    m_player.stop();
    m_player.setMedia({});
    setMediaIndex(std::clamp<std::int64_t>(index, 0, m_mediaList.count() - 1));
    m_host.selectRow(m_mediaIndex);
    m_preparingPlayNext = false;
    m_timeChangeCount = -1;
    startTimerPlayNext();
    updateVideoUI();
    m_host.showLoading(QStringLiteral("Loading..."));
    m_host.extractionStarted();
    m_isFilmHeld = true;
    m_extraction.start(m_player.mediaPath());
    // On a slow card the walk may take as long as reading the whole film.
    after(m_timings.walkMs, [this] {
        if (!m_isFilmHeld)
            return;
        m_blackBoxData = MRVBlackBoxData(); // they are those of the recording before
        m_extraction.shareCard();
        startFilm();
    });
    return true;
}

void PlaybackController::updateVideoUI()
{
    m_player.setMedia(m_mediaList.mediaAtIndex(m_mediaIndex)->path());
    m_host.showFrontLogo();
}

void PlaybackController::installData(MRVBlackBoxData&& data)
{
    m_blackBoxData = std::move(data);
    m_host.extractionFinished();
    if (m_isFilmHeld)
        return startFilm();
    m_playInfo.setPosition(m_player.position());
    Q_EMIT momentShown();
}

void PlaybackController::startFilm()
{
    m_isFilmHeld = false;
    initMediaControlView();
    m_player.play();
}

void PlaybackController::initMediaControlView()
{
    m_waitingForPlayStart = true;
    m_host.setPositionSliderValue(0);
    if (!m_keepsWindow || !m_followsByItself)
        setVideoScaleIndex(0);
    m_host.updateSideViewButton();
    m_playInfo.setSpeed(1);
    m_player.setRate(1);
    m_playInfo.setPosition(0);
    m_host.resetDataFields();
}

void PlaybackController::didStartPlayer()
{
    if (!m_player.hasMedia())
        return;
    m_playInfo.setSpeed(static_cast<double>(m_player.rate()));
    m_playInfo.setIsPlaying(isPlaying());
    chooseAudioAuto();
    updatePlayInfoScale(); // this film may have another size than the one before
    if (isPlayersRow(m_mediaIndex))
        m_host.markPlayable(m_mediaIndex);
}

void PlaybackController::changeAndPlay(std::int64_t selectedRow)
{
    qCInfo(playbackLog, "selectedRow=%lld,mediaIndex=%lld,isPlaying=%d,count=%lld",
           static_cast<long long>(selectedRow), static_cast<long long>(m_mediaIndex),
           m_player.isPlaying() ? 1 : 0, static_cast<long long>(m_mediaList.count()));
    if (selectedRow < 0)
        return;
    if (selectedRow != m_mediaIndex || !isPlayersRow(selectedRow)) {
        playAtIndex(selectedRow);
        return;
    }
    if (m_isFilmHeld)
        return; // it is about to play
    if (m_player.isPaused())
        m_player.setPosition(0);
    m_player.play();
}

// The end of a start or of a recording

void PlaybackController::stopPlay()
{
    m_player.pause();
    m_player.setMedia({});
    abandonStart();
}

void PlaybackController::stop()
{
    m_player.stop();
    m_player.setMedia({});
    abandonStart();
}

/// Stops everything that the last start began.
void PlaybackController::abandonStart()
{
    dropDelayedSteps();
    m_playStopTimer.stop();
    m_preparingPlayNext = false;
    m_isFilmHeld = false;
    if (m_extraction.isRunning()) {
        m_extraction.abandon();
        m_host.extractionFinished(); // the lists are those of the recording before
    }
    m_waitingForPlayStart = false;
    if (!m_host.isLoadingStopped())
        m_host.hideLoading();
    m_playInfo.setIsPlaying(false);
}

void PlaybackController::mediaPlayerFailed(const QString& reason)
{
    qCWarning(playbackLog).noquote() << "cannot play" << QString::fromStdString(m_player.mediaPath()) << ':'
                                     << reason;
    const bool isListed = isPlayersRow(m_mediaIndex);
    m_player.setMedia({});
    abandonStart();
    chooseAudioAuto();
    if (isListed)
        m_host.markUnplayable(m_mediaIndex, reason);
}

/// The list stays as it is, and nothing follows: the next recording is on the same card.
void PlaybackController::mediaPlayerLost()
{
    qCWarning(playbackLog).noquote() << "cannot be read any more:"
                                     << QString::fromStdString(m_player.mediaPath());
    m_player.setMedia({});
    abandonStart();
    chooseAudioAuto();
    m_host.showLost();
}

void PlaybackController::startTimerPlayNext() { m_playStopTimer.start(m_timings.endCheckMs); }

void PlaybackController::timerPlayNext()
{
    if (m_preparingPlayNext || !isAtEnd() || !m_host.mayFollow())
        return;
    m_preparingPlayNext = true;
    after(m_timings.playNextMs, [this] {
        // Not if the user has gone back or opened another list meanwhile.
        if (isAtEnd() && isPlayersRow(m_mediaIndex) && m_host.mayFollow())
            playNext();
        else
            m_preparingPlayNext = false;
    });
}

bool PlaybackController::playNext()
{
    m_followsByItself = m_mediaIndex + 1 < m_mediaList.count() && playAtIndex(m_mediaIndex + 1);
    return m_followsByItself;
}

void PlaybackController::didFinishPlay()
{
    m_playInfo.setPosition(m_player.position());
    m_playInfo.setIsPlaying(isPlaying());
}

// What the player reports

void PlaybackController::showVideo()
{
    m_host.setVideoVisible((m_player.hasMedia() && m_player.isPlaying()) || m_player.isPaused());
}

void PlaybackController::mediaPlayerStateChanged()
{
    showVideo();
    if (!m_player.hasMedia())
        return;
    if (m_player.isPaused()) {
        didFinishPlay();
    } else if (m_player.isPlaying()) {
        if (std::exchange(m_waitingForPlayStart, false))
            didStartPlayer();
        else
            updateAudioUI();
    }
}

void PlaybackController::mediaPlayerTimeChanged()
{
    showVideo();
    m_preparingPlayNext = false;
    if (!m_host.isLoadingStopped()) {
        m_host.hideLoading();
        chooseAudioAuto();
    }
    m_playInfo.setIsPlaying(isPlaying());
    if (m_moving) {
        m_timeChangeCount = -1;
        if (m_movingPosition > 0)
            m_playInfo.setPosition(m_movingPosition);
    } else if (m_player.isPaused()) {
        showRestingMoment();
    } else {
        m_timeChangeCount = (m_timeChangeCount + 1) % timeChangesPerPosition;
        if (m_timeChangeCount == 0)
            m_playInfo.setPosition(m_player.position());
    }
}

// Transport

void PlaybackController::clickPlayButton()
{
    if (!m_player.hasMedia() || m_isFilmHeld)
        return;
    if (m_playInfo.isPlaying()) {
        if (isPlaying())
            m_player.pause();
        return;
    }
    if (m_player.position() < endPosition) {
        m_player.play();
        return;
    }
    const double slider = m_host.positionSliderValue();
    if (slider < endPosition) {
        m_player.setTimeMs(static_cast<std::int64_t>(slider * static_cast<double>(m_player.lengthMs())));
        after(m_timings.playAfterSeekMs, [this] { m_player.play(); });
    } else if (isPlayersRow(m_mediaIndex)) {
        m_player.setMedia({});
        playAtIndex(m_mediaIndex);
    } else { // the list is another one by now
        m_player.setPosition(0);
        m_player.play();
    }
}

void PlaybackController::videoPositionSliderMoved(double sliderValue)
{
    if (std::isnan(sliderValue))
        return;
    const double value = std::clamp(sliderValue, 0.0, 1.0);
    m_playInfo.setPosition(value);
    qCInfo(playbackLog, "[D ] position slider moved:%f <=> %f", m_playInfo.position(), value);
    m_playInfo.setIsPlaying(isPlaying());
    if (m_isFilmHeld)
        return; // it starts at its beginning
    if (value >= endPosition) {
        m_player.setTimeMs(m_player.lengthMs());
        return;
    }
    const double before = m_player.position();
    m_movingPosition = value;
    m_player.setPosition(value);
    if (before > value) {
        after(m_timings.seekBackRepeatMs, [this] {
            m_player.setPosition(m_movingPosition);
            syncVideoPositionDelay(m_timings.seekBackSettledMs);
        });
    } else {
        syncVideoPositionDelay(m_timings.seekSettledMs);
    }
}

void PlaybackController::syncVideoPositionDelay(int delayMs)
{
    if (m_player.hasMedia())
        after(delayMs, [this] {
            m_moving = false;
            if (m_player.isPaused())
                showRestingMoment();
        });
}

/// A resting player reports a seek only once.
void PlaybackController::showRestingMoment()
{
    m_playInfo.setPosition(m_player.position());
    Q_EMIT momentShown();
}

void PlaybackController::jumpForward()
{
    qCInfo(playbackLog).noquote() << QStringLiteral("[D ] _player1.time=%1,remainingTime.stringValue=%2")
                                         .arg(timeText(m_player.timeMs()),
                                              timeText(m_player.remainingTimeMs()));
    const std::int64_t lengthMs = m_player.lengthMs();
    if (m_moving || !m_player.hasMedia() || m_isFilmHeld || lengthMs <= 0)
        return;
    const float remainingSeconds = static_cast<float>(m_player.remainingTimeMs()) / 1000;
    if (remainingSeconds > -jumpSeconds) {
        m_player.setTimeMs(lengthMs);
        return;
    }
    m_moving = true;
    m_movingPosition = std::min(m_player.position() + jumpMs / static_cast<double>(lengthMs), 1.0);
    m_host.setPositionSliderValue(m_movingPosition);
    m_player.jumpForward(jumpSeconds);
    syncVideoPositionDelay(m_timings.seekSettledMs);
}

void PlaybackController::jumpBackward()
{
    const std::int64_t lengthMs = m_player.lengthMs();
    if (m_moving || !m_player.hasMedia() || m_isFilmHeld || lengthMs <= 0)
        return;
    const float seconds = static_cast<float>(m_player.timeMs()) / 1000;
    if (seconds < jumpSeconds) {
        m_player.setTimeMs(0);
        m_player.setPosition(0);
        after(0, [this] {
            m_player.setPosition(0);
            syncVideoPositionDelay(m_timings.jumpBackSettledMs);
        });
        return;
    }
    m_moving = true;
    const float jump = static_cast<float>(jumpMs) / static_cast<float>(lengthMs);
    const double target = std::max(m_player.position() - static_cast<double>(jump), 0.0);
    m_movingPosition = target;
    m_player.setPosition(target);
    after(m_timings.jumpBackRepeatMs, [this, target] {
        m_player.setPosition(target);
        syncVideoPositionDelay(m_timings.jumpBackSettledMs);
    });
}

// Speed, volume, size

void PlaybackController::increaseSpeed()
{
    if (m_playInfo.speed() + 1 > largestSpeed)
        return;
    m_player.setRate(m_player.rate() + 1);
    m_playInfo.setSpeed(m_playInfo.speed() + 1);
}

void PlaybackController::decreaseSpeed()
{
    if (m_playInfo.speed() <= 1)
        return;
    m_player.setRate(m_player.rate() - 1);
    m_playInfo.setSpeed(m_playInfo.speed() - 1);
}

void PlaybackController::volumeSliderMoved(int volume) { setVolume(volume); }

void PlaybackController::volumeUp() { setVolume(m_volume + volumeStep); }

void PlaybackController::volumeDown() { setVolume(m_volume - volumeStep); }

void PlaybackController::setVolume(int volume)
{
    const int clamped = std::clamp(volume, 0, largestVolume);
    if (clamped == m_volume)
        return;
    m_volume = clamped;
    updateAudioUI();
    Q_EMIT volumeChanged(m_volume);
}

void PlaybackController::updateAudioUI()
{
    m_player.setMuted(false);
    m_player.setVolume(m_volume);
    m_host.showVolume(m_volume);
}

void PlaybackController::chooseAudioAuto()
{
    m_playInfo.setAudioMediaDirection(hasAudio() ? mediaDirection(m_player.mediaPath()) : UnknownMedia);
}

void PlaybackController::updatePlayInfoScale()
{
    const int videoHeight = m_player.videoSize().height();
    if (m_player.isPlaying() && m_player.hasVideoOut() && videoHeight > 0)
        m_playInfo.setScale(static_cast<double>(m_host.videoContainerHeight()) / videoHeight);
}

void PlaybackController::sizeUp()
{
    if (m_player.isPlaying())
        setVideoScaleIndex(1);
}

void PlaybackController::sizeDown()
{
    if (m_player.isPlaying())
        setVideoScaleIndex(-1);
}

void PlaybackController::setVideoScaleIndex(int step)
{
    const WindowStep change = windowStep(step, m_host.screenFrame(), m_host.windowFrame(),
                                         m_host.minWindowSize(), m_host.isFullScreen());
    switch (change.action) {
    case WindowStep::Action::Nothing:
        return;
    case WindowStep::Action::SetFrame:
        return m_host.setWindowFrame(change.frame);
    case WindowStep::Action::EnterFullScreen:
        return m_host.enterFullscreen();
    case WindowStep::Action::LeaveFullScreen:
        return m_host.leaveFullscreen();
    }
}

// Small questions and steps

/// Not in the last second, when no whole second remains.
bool PlaybackController::isPlaying() const
{
    return m_player.hasMedia() && m_player.isPlaying() && m_player.remainingTimeMs() / 1000 != 0;
}

bool PlaybackController::hasAudio() const { return m_player.hasMedia() && m_player.audioTrackCount() > 0; }

bool PlaybackController::isAtEnd() const { return m_player.isPaused() && m_player.position() >= endPosition; }

/// Whether a row is the recording in the player. The index alone is not enough: the list may have changed
/// since.
bool PlaybackController::isPlayersRow(std::int64_t row) const
{
    const MRVMedia* media = m_mediaList.mediaAtIndex(row);
    return media != nullptr && m_player.hasMedia() && media->path() == m_player.mediaPath();
}

void PlaybackController::setMediaIndex(std::int64_t index)
{
    m_mediaIndex = index;
    Q_EMIT mediaIndexChanged(index);
}

void PlaybackController::after(int delayMs, std::function<void()> step)
{
    QTimer::singleShot(delayMs, this, [this, generation = m_stepGeneration, step = std::move(step)] {
        if (generation == m_stepGeneration)
            step();
    });
}

/// Delayed steps of one recording must not reach the next.
void PlaybackController::dropDelayedSteps()
{
    ++m_stepGeneration;
    m_moving = false;
    m_movingPosition = 0;
}

} // namespace marvo
