// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/MainViews.h"

#include "controls/PMProgressIndicator.h"
#include "viewer/CustomWindow.h"
#include "viewer/FullScreenControlBar.h"
#include "viewer/GraphView.h"
#include "viewer/GsensorBox.h"
#include "viewer/HeadBox.h"
#include "viewer/MainWindowLayout.h"
#include "viewer/MapView.h"
#include "viewer/MediaControlBox.h"
#include "viewer/SidePanel.h"
#include "viewer/TKVideoBackgroundImageView.h"
#include "viewer/VideoView.h"

#include <QEvent>

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
      videoContainerView(namedBox("videoContainerView", videoBox)),
      video1View(new VideoView(videoContainerView)),
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

    player1BackgroundView->setGeometry(videoBox->rect());
    videoContainerView->setGeometry(videoBox->rect());
    video1View->setGeometry(videoContainerView->rect());
    if (!fullScreen)
        bodyRightBox->layoutBoxes(layout.sideButtonBox, layout.mediaListBox);
}

DataPanelFields MainViews::dataPanelFields() const
{
    const DataStrip* data = bodyRightBox->mapContainerBottomView();
    return {gsensorBox->gsensorXField(), gsensorBox->gsensorYField(), gsensorBox->gsensorZField(),
            data->speedField(),          data->longitudeField(),      data->latitudeField(),
            data->hdopField(),           data->sateliteField()};
}

} // namespace marvo
