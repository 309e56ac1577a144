// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/MainWindowPlaybackHost.h"

#include "controls/FractionSlider.h"
#include "controls/InterfaceScale.h"
#include "playback/VideoView.h"
#include "texts/Localisation.h"
#include "viewer/CustomWindow.h"
#include "viewer/list/RecordingListView.h"
#include "viewer/list/RecordingTableModel.h"
#include "viewer/LoadingIndicator.h"
#include "viewer/MainViews.h"
#include "viewer/MainWindowLayout.h"
#include "viewer/MediaControlBox.h"
#include "viewer/MRVScrollableVideoContainerView.h"
#include "viewer/panel/DataPanelUpdater.h"
#include "viewer/SidePanel.h"
#include "viewer/TKVideoBackgroundImageView.h"
#include "viewer/VideoNotice.h"

#include <QApplication>
#include <QScreen>

#include <utility>

namespace marvo {

MainWindowPlaybackHost::MainWindowPlaybackHost(MainViews& views, RecordingTableModel& recordings,
                                               LoadingIndicator& loading, DataPanelUpdater& dataPanel,
                                               std::function<void()> updateSideViewButton)
    : m_views(views),
      m_recordings(recordings),
      m_loading(loading),
      m_dataPanel(dataPanel),
      m_updateSideViewButton(std::move(updateSideViewButton))
{}

void MainWindowPlaybackHost::selectRow(std::int64_t row)
{
    m_views.bodyRightBox->mediaListTableView()->selectOnlyRow(row);
}

void MainWindowPlaybackHost::markUnplayable(std::int64_t row, const QString& reason)
{
    m_recordings.markUnplayable(row, reason);
    m_views.videoReason->tell(localised("viewer.list.unplayable").arg(reason));
}

void MainWindowPlaybackHost::markPlayable(std::int64_t row) { m_recordings.markPlayable(row); }

void MainWindowPlaybackHost::showLost() { m_views.videoReason->tell(localised("play.lost")); }

void MainWindowPlaybackHost::showLoading(const QString& text)
{
    m_views.videoReason->hide();
    m_loading.showLoading(text);
}

void MainWindowPlaybackHost::hideLoading() { m_loading.hideLoading(); }

bool MainWindowPlaybackHost::isLoadingStopped() const { return m_loading.stopVideoLoadingView(); }

void MainWindowPlaybackHost::setVideoVisible(bool visible) { m_views.video1View->setVisible(visible); }

void MainWindowPlaybackHost::showFrontLogo()
{
    m_views.player1BackgroundView->setLogoImage(QStringLiteral("v1_front_logo"));
}

double MainWindowPlaybackHost::positionSliderValue() const
{
    return m_views.mediaControlBox->videoPositionSlider()->fraction();
}

void MainWindowPlaybackHost::setPositionSliderValue(double value)
{
    m_views.mediaControlBox->videoPositionSlider()->setFraction(value);
}

void MainWindowPlaybackHost::showVolume(int volume)
{
    m_views.mediaControlBox->volumeSlider()->setFraction(volume);
}

int MainWindowPlaybackHost::videoContainerHeight() const { return m_views.videoContainerView->height(); }

void MainWindowPlaybackHost::extractionStarted() { m_dataPanel.extractionStarted(); }

void MainWindowPlaybackHost::extractionFinished() { m_dataPanel.extractionFinished(); }

void MainWindowPlaybackHost::resetDataFields() { m_dataPanel.resetDataFields(); }

void MainWindowPlaybackHost::updateSideViewButton() { m_updateSideViewButton(); }

bool MainWindowPlaybackHost::mayFollow() const { return QApplication::activeModalWidget() == nullptr; }

QRect MainWindowPlaybackHost::windowFrame() const { return m_views.window.frame(); }

QRect MainWindowPlaybackHost::screenFrame() const { return m_views.window.screen()->geometry(); }

QSize MainWindowPlaybackHost::minWindowSize() const { return scaledSize(marvo::minWindowSize); }

void MainWindowPlaybackHost::setWindowFrame(const QRect& frame)
{
    m_views.window.setFrame(frame, CustomWindow::FrameChange::Animated);
}

bool MainWindowPlaybackHost::isFullScreen() const { return m_views.window.isFullScreen(); }

void MainWindowPlaybackHost::enterFullscreen() { m_views.window.enterFullscreen(); }

void MainWindowPlaybackHost::leaveFullscreen() { m_views.window.leaveFullscreen(); }

} // namespace marvo
