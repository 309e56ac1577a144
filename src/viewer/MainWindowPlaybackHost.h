// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "playback/PlaybackHost.h"

#include <functional>

namespace marvo {

class DataPanelUpdater;
class LoadingIndicator;
class MainViews;
class RecordingTableModel;

/// The main window as the playback controller sees it: each question goes to the view that answers it.
class MainWindowPlaybackHost : public PlaybackHost
{
public:
    /// The objects are not owned and must outlive this one.
    MainWindowPlaybackHost(MainViews& views, RecordingTableModel& recordings, LoadingIndicator& loading,
                           DataPanelUpdater& dataPanel, std::function<void()> updateSideViewButton);

    void selectRow(std::int64_t row) override;
    void markUnplayable(std::int64_t row, const QString& reason) override;
    void markPlayable(std::int64_t row) override;
    void showLost() override;
    void showLoading(const QString& text) override;
    void hideLoading() override;
    bool isLoadingStopped() const override;
    void setVideoVisible(bool visible) override;
    void showFrontLogo() override;
    double positionSliderValue() const override;
    void setPositionSliderValue(double value) override;
    void showVolume(int volume) override;
    int videoContainerHeight() const override;
    void extractionStarted() override;
    void extractionFinished() override;
    void resetDataFields() override;
    void updateSideViewButton() override;
    bool mayFollow() const override;
    QRect windowFrame() const override;
    QRect screenFrame() const override;
    QSize minWindowSize() const override;
    void setWindowFrame(const QRect& frame) override;
    bool isFullScreen() const override;
    void enterFullscreen() override;
    void leaveFullscreen() override;

private:
    MainViews& m_views;
    RecordingTableModel& m_recordings;
    LoadingIndicator& m_loading;
    DataPanelUpdater& m_dataPanel;
    std::function<void()> m_updateSideViewButton;
};

} // namespace marvo
