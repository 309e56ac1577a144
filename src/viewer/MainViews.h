// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "viewer/panel/DataPanelUpdater.h"

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
class MRVScrollableVideoContainerView;
class PMProgressIndicator;
class SidePanel;
class TKVideoBackgroundImageView;
class VideoNotice;
class VideoReason;
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
    /// In full screen: whether the control bar's place is empty for now. It keeps its place, so that the
    /// video does not jump when the bar comes.
    void concealControlBar(bool concealed);
    DataPanelFields dataPanelFields() const;

Q_SIGNALS:
    void videoDoubleClicked();
    /// The wheel over the video; steps up are positive.
    void videoWheeled(int steps);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool m_controlBarConcealed = false;
    int m_wheelDelta = 0; ///< of a step that is not full yet

public:
    CustomWindow& window;

    QWidget* backgroundBox;
    HeadBox* headBox;
    PMProgressIndicator* progressIndicator;
    QWidget* bodyBox;
    QWidget* bodyLeftBox;

    QWidget* videoBox;
    TKVideoBackgroundImageView* player1BackgroundView;
    MRVScrollableVideoContainerView* videoContainerView;
    VideoView* video1View;
    VideoReason* videoReason;
    VideoNotice* videoNotice;

    GraphView* graphView;
    GsensorBox* gsensorBox;
    MediaControlBox* mediaControlBox;
    FullScreenControlBar* mediaControlBoxForFullScreen;

    MapView* mapWebView;
    SidePanel* bodyRightBox;
};

} // namespace marvo
