// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "playback/MediaPlayer.h"
#include "playback/PlaybackHost.h"

#include <QString>

#include <cmath>

namespace marvo::test {

/// A player that does what it is told at once and writes it down, but plays only when the test says so.
class FakePlayer : public MediaPlayer
{
public:
    QString calls;
    std::string path;
    State current = State::Idle;
    std::int64_t nowMs = 0;
    std::int64_t length = 60'000;
    float currentRate = 1;
    int volume = -1;
    bool muted = true;
    int audioTracks = 1;

    void become(State state)
    {
        current = state;
        Q_EMIT stateChanged();
    }
    void tick(std::int64_t timeMs)
    {
        nowMs = timeMs;
        Q_EMIT timeChanged();
    }
    void failWith(const QString& reason)
    {
        become(State::Failed);
        Q_EMIT failed(reason);
    }
    QString takeCalls() { return std::exchange(calls, {}); }
    void note(const QString& call) { calls += (calls.isEmpty() ? QString() : QStringLiteral(", ")) + call; }

    void setMedia(const std::string& newPath) override
    {
        path = newPath;
        nowMs = 0;
        note(path.empty() ? QStringLiteral("no media") : QStringLiteral("media"));
        become(State::Idle);
    }
    bool hasMedia() const override { return !path.empty(); }
    std::string mediaPath() const override { return path; }
    void play() override { note(QStringLiteral("play")); }
    void pause() override { note(QStringLiteral("pause")); }
    void stop() override
    {
        note(QStringLiteral("stop"));
        become(State::Stopped);
    }
    State state() const override { return current; }
    double position() const override
    {
        return length > 0 ? static_cast<double>(nowMs) / static_cast<double>(length) : 0;
    }
    void setPosition(double positionFraction) override
    {
        note(QStringLiteral("position %1").arg(positionFraction, 0, 'f', 4));
        nowMs = std::llround(positionFraction * static_cast<double>(length));
    }
    std::int64_t timeMs() const override { return nowMs; }
    void setTimeMs(std::int64_t timeMs) override
    {
        note(QStringLiteral("time %1").arg(timeMs));
        nowMs = timeMs;
    }
    std::int64_t lengthMs() const override { return length; }
    void jumpForward(int seconds) override
    {
        note(QStringLiteral("jump %1").arg(seconds));
        nowMs += seconds * 1000;
    }
    float rate() const override { return currentRate; }
    void setRate(float rate) override { currentRate = rate; }
    void setVolume(int percent) override { volume = percent; }
    void setMuted(bool mute) override { muted = mute; }
    int audioTrackCount() const override { return audioTracks; }
    bool hasVideoOut() const override { return isPlaying() || isPaused(); }
    QSize videoSize() const override { return hasVideoOut() ? QSize(640, 360) : QSize(0, 0); }
};

/// The window as far as the rules see it.
class FakeHost : public PlaybackHost
{
public:
    std::int64_t selectedRow = -1;
    std::int64_t unplayableRow = -1;
    QString unplayableReason;
    bool isLost = false;
    bool loadingStopped = true;
    bool videoVisible = true;
    double slider = 0;
    int shownVolume = -1;
    int extractionsStarted = 0;
    int extractionsFinished = 0;
    int fieldsReset = 0;
    QRect frame = {100, 50, 1020, 640};
    bool fullScreen = false;

    void selectRow(std::int64_t row) override { selectedRow = row; }
    void markUnplayable(std::int64_t row, const QString& reason) override
    {
        unplayableRow = row;
        unplayableReason = reason;
    }
    void markPlayable(std::int64_t row) override
    {
        if (row == unplayableRow)
            unplayableRow = -1;
    }
    void showLost() override { isLost = true; }
    void showLoading(const QString&) override { loadingStopped = false; }
    void hideLoading() override { loadingStopped = true; }
    bool isLoadingStopped() const override { return loadingStopped; }
    void setVideoVisible(bool visible) override { videoVisible = visible; }
    void showFrontLogo() override {}
    double positionSliderValue() const override { return slider; }
    void setPositionSliderValue(double v) override { slider = v; }
    void showVolume(int volume) override { shownVolume = volume; }
    int videoContainerHeight() const override { return 540; }
    void extractionStarted() override { ++extractionsStarted; }
    void extractionFinished() override { ++extractionsFinished; }
    void resetDataFields() override { ++fieldsReset; }
    void updateSideViewButton() override {}
    QRect windowFrame() const override { return frame; }
    QRect screenFrame() const override { return {0, 0, 1920, 1080}; }
    QSize minWindowSize() const override { return {1020, 640}; }
    void setWindowFrame(const QRect& newFrame) override { frame = newFrame; }
    bool isFullScreen() const override { return fullScreen; }
    void enterFullscreen() override { fullScreen = true; }
    void leaveFullscreen() override { fullScreen = false; }
};

} // namespace marvo::test
