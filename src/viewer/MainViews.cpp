// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/MainViews.h"

#include "controls/PMProgressIndicator.h"
#include "map/MapView.h"
#include "playback/VideoView.h"
#include "viewer/CustomWindow.h"
#include "viewer/FullScreenControlBar.h"
#include "viewer/HeadBox.h"
#include "viewer/MainWindowLayout.h"
#include "viewer/MediaControlBox.h"
#include "viewer/MRVScrollableVideoContainerView.h"
#include "viewer/panel/GraphView.h"
#include "viewer/panel/GsensorBox.h"
#include "viewer/SidePanel.h"
#include "viewer/TKVideoBackgroundImageView.h"
#include "viewer/VideoNotice.h"

#include <QWheelEvent>

namespace marvo {

namespace {

QWidget* namedBox(const char* name, QWidget* parent)
{
    auto* box = new QWidget(parent);
    box->setObjectName(QLatin1StringView(name));
    return box;
}

/// A box that the mode does not show has a null rectangle.
void place(QWidget* box, const QRect& rect)
{
    if (!rect.isNull())
        box->setGeometry(rect);
    box->setVisible(!rect.isNull());
}

} // namespace

MainViews::MainViews(CustomWindow& mainWindow, const MainWindowCommands& commands)
    : QObject(&mainWindow),
      window(mainWindow),
      backgroundBox(namedBox("backgroundBox", &mainWindow)),
      headBox(new HeadBox(commands, backgroundBox)),
      progressIndicator(new PMProgressIndicator(headBox)),
      bodyBox(namedBox("bodyBox", backgroundBox)),
      bodyLeftBox(namedBox("bodyLeftBox", bodyBox)),
      videoBox(namedBox("videoBox", bodyLeftBox)),
      player1BackgroundView(new TKVideoBackgroundImageView(videoBox)),
      videoContainerView(new MRVScrollableVideoContainerView(videoBox)),
      video1View(new VideoView(videoContainerView)),
      videoReason(new VideoReason(videoContainerView)),
      videoNotice(new VideoNotice(videoContainerView)),
      graphView(new GraphView),
      gsensorBox(new GsensorBox(graphView, bodyLeftBox)),
      mediaControlBox(new MediaControlBox(commands, bodyLeftBox)),
      mediaControlBoxForFullScreen(new FullScreenControlBar(commands, bodyLeftBox)),
      mapWebView(new MapView),
      bodyRightBox(new SidePanel(commands, mapWebView, bodyBox))
{
    progressIndicator->setObjectName(QStringLiteral("progressIndicator"));
    player1BackgroundView->setObjectName(QStringLiteral("player1BackgroundView"));
    video1View->setObjectName(QStringLiteral("video1View"));
    videoBox->installEventFilter(this);
}

bool MainViews::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == videoBox && event->type() == QEvent::MouseButtonDblClick) {
        Q_EMIT videoDoubleClicked();
        return true;
    }
    if (watched == videoBox && event->type() == QEvent::Wheel) {
        // A touch pad tells a step in many small parts.
        m_wheelDelta += static_cast<QWheelEvent*>(event)->angleDelta().y();
        const int steps = m_wheelDelta / QWheelEvent::DefaultDeltasPerStep;
        m_wheelDelta -= steps * QWheelEvent::DefaultDeltasPerStep;
        if (steps != 0)
            Q_EMIT videoWheeled(steps);
        event->accept();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

void MainViews::layoutWindow()
{
    const bool fullScreen = window.isFullScreen();
    const MainWindowLayout layout =
        marvo::layoutWindow(window.size(), fullScreen ? WindowMode::FullScreen : WindowMode::Windowed);
    place(backgroundBox, layout.backgroundBox);
    place(headBox, layout.headBox);
    place(bodyBox, layout.bodyBox);
    place(bodyLeftBox, layout.bodyLeftBox);
    place(bodyRightBox, layout.bodyRightBox);
    place(videoBox, layout.videoBox);
    place(gsensorBox, layout.gsensorBox);
    place(mediaControlBox, layout.mediaControlBox);
    place(mediaControlBoxForFullScreen, layout.mediaControlBoxForFullScreen);
    if (m_controlBarConcealed)
        mediaControlBoxForFullScreen->hide();

    player1BackgroundView->setGeometry(videoBox->rect());
    videoContainerView->setGeometry(videoBox->rect());
    video1View->setGeometry(videoContainerView->rect());
    if (!fullScreen)
        bodyRightBox->layoutBoxes(layout.sideButtonBox, layout.mediaListBox);
}

void MainViews::concealControlBar(bool concealed)
{
    m_controlBarConcealed = concealed;
    if (window.isFullScreen())
        mediaControlBoxForFullScreen->setVisible(!concealed);
}

DataPanelFields MainViews::dataPanelFields() const
{
    const DataStrip* data = bodyRightBox->mapContainerBottomView();
    return {gsensorBox->gsensorXField(), gsensorBox->gsensorYField(), gsensorBox->gsensorZField(),
            data->speedField(),          data->longitudeField(),      data->latitudeField(),
            data->hdopField(),           data->sateliteField()};
}

} // namespace marvo
