// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QSize>
#include <QString>

#include <cstdint>

namespace marvo {

/// What the playback controller asks of the window around it. MainWindowPlaybackHost answers; tests stand in.
class PlaybackHost
{
public:
    virtual ~PlaybackHost() = default;

    virtual void selectRow(std::int64_t row) = 0;
    /// Marks a row of the list as unplayable; the reason becomes its tool tip.
    virtual void markUnplayable(std::int64_t row, const QString& reason) = 0;
    /// The row plays: an earlier mark of it no longer holds.
    virtual void markPlayable(std::int64_t /*row*/) {}

    /// What was playing cannot be read any more: says so where its picture was.
    virtual void showLost() {}

    virtual void showLoading(const QString& text) = 0;
    virtual void hideLoading() = 0;
    /// stopVideoLoadingView: the loading indicator has been told to stop, or has stopped.
    virtual bool isLoadingStopped() const = 0;

    virtual void setVideoVisible(bool visible) = 0;    ///< video1View
    virtual void showFrontLogo() = 0;                  ///< the video background's logo "v1_front_logo"
    virtual double positionSliderValue() const = 0;    ///< of videoPositionSlider, 0 to 1
    virtual void setPositionSliderValue(double v) = 0; ///< shows it, without running videoPositionSliderMoved
    virtual void showVolume(int volume) = 0;           ///< on volumeSlider, without running volumeSliderMoved
    virtual int videoContainerHeight() const = 0;      ///< of videoContainerView

    /// The extraction has begun: the panels must not read its lists until it ends.
    virtual void extractionStarted() = 0;
    /// It has returned: hand the G-sensor list to the graph.
    virtual void extractionFinished() = 0;
    /// "X=+0.00", "Y=+0.00", "Z=+0.00", and empty speed, position, HDOP and satellite fields.
    virtual void resetDataFields() = 0;
    virtual void updateSideViewButton() = 0;

    /// False while a dialog of the user's is open: no recording starts by itself behind it.
    virtual bool mayFollow() const { return true; }

    virtual QRect windowFrame() const = 0;
    virtual QRect screenFrame() const = 0;
    virtual QSize minWindowSize() const = 0; ///< 1020 x 640
    virtual void setWindowFrame(const QRect& frame) = 0;
    virtual bool isFullScreen() const = 0;
    virtual void enterFullscreen() = 0;
    virtual void leaveFullscreen() = 0;
};

} // namespace marvo
