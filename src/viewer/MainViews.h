// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "viewer/DataPanelUpdater.h"

#include <QObject>

namespace marvo {

class CustomWindow;
class FullScreenControlBar;
class GraphView;
class GsensorBox;
class HeadBox;
class MainWindowCommands;
class MapView;
class MediaControlBox;
class PMProgressIndicator;
class SidePanel;
class TKVideoBackgroundImageView;
class VideoView;

/// The main window's boxes and what stands in them, placed by MainWindowLayout. All of it belongs to the
/// window; this object only knows where it is.
class MainViews : public QObject
{
    Q_OBJECT
public:
    MainViews(CustomWindow& window, const MainWindowCommands& commands);

    /// Places every box for the window's present size and mode.
    void layoutWindow();
    DataPanelFields dataPanelFields() const;

Q_SIGNALS:
    void videoDoubleClicked();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

public:
    CustomWindow& window;

    QWidget* backgroundBox;
    HeadBox* headBox;
    PMProgressIndicator* progressIndicator;
    QWidget* bodyBox;
    QWidget* bodyLeftBox;

    QWidget* videoBox;
    TKVideoBackgroundImageView* player1BackgroundView;
    QWidget* videoContainerView;
    VideoView* video1View;

    GraphView* graphView;
    GsensorBox* gsensorBox;
    MediaControlBox* mediaControlBox;
    FullScreenControlBar* mediaControlBoxForFullScreen;

    MapView* mapWebView;
    SidePanel* bodyRightBox;
};

} // namespace marvo
