// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Screens.h"

#include <QPoint>
#include <QPropertyAnimation>
#include <QRect>
#include <QTimer>
#include <QWidget>

#include <string>

class QLabel;

namespace marvo {

class WindowEdges;

/// The main window: without the desktop's frame, moved by dragging its background, sized by its edges, with a
/// full-screen mode of its own that knows where to return to.
class CustomWindow : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(bool isFullScreen READ isFullScreen WRITE setIsFullScreen NOTIFY isFullScreenChanged)
public:
    enum class FrameChange { AtOnce, Animated };

    explicit CustomWindow(QWidget* parent = nullptr);
    /// A window of the rectangle's size, centred on the screen. It is opaque to its edges, so that the
    /// desktop gives it the shadow that it gives to a window without margins of its own.
    explicit CustomWindow(const QRect& contentRect);
    ~CustomWindow() override;

    /// The window's own full-screen mode. It hides the widget's question of the same name: this one tells the
    /// mode that was asked for, whatever the desktop has made of it yet.
    bool isFullScreen() const { return m_isFullScreen; }
    /// The mode alone, told to those who follow it; enterFullscreen and leaveFullscreen do the rest, too.
    void setIsFullScreen(bool fullScreen);
    /// Covers the whole screen of the window, panels included. Nothing happens in full screen.
    void enterFullscreen();
    /// Returns to initialFrame, or to one of its size if its screen is gone. Nothing happens out of full
    /// screen.
    void leaveFullscreen();

    /// The frame to return to when leaving full screen; entering it fills in the frame of that moment when
    /// none has been set.
    const QRect& initialFrame() const { return m_initialFrame; }
    void setInitialFrame(const QRect& frame) { m_initialFrame = frame; }

    /// The frame on the screen; while a change is animated, the one that it leads to.
    QRect frame() const;
    void setFrame(const QRect& frame, FrameChange change);
    /// Fills the screen's free area, or goes back to the frame before.
    void toggleZoom();

Q_SIGNALS:
    void isFullScreenChanged(bool fullScreen);
    /// The content has a new size.
    void contentResized();
    /// The window is about to be closed.
    void windowWillClose();
    /// A folder, or a file, was dropped onto the window; an absolute path as bytes.
    void dropped(const std::string& path);

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void followDesktop();
    void coverScreen();
    void takeRestoredFrame();
    void changeGeometry(const QRect& frame, FrameChange change);
    bool moveByDesktop(QPoint location);

    QPoint m_initialLocation; ///< of the last press, in window co-ordinates
    QRect m_initialFrame;
    bool m_isFullScreen = false;
    bool m_pressed = false;
    bool m_movedByDesktop = false;
    bool m_frameAwaitsAnswer = false; ///< of the desktop to leaving full screen
    bool m_desktopMoves = true;       ///< until it has refused once
    WindowStatePresentation m_presentation;
    QPropertyAnimation m_frameChange;
    QTimer m_desktopSettles;
    WindowEdges* m_edges;
    QLabel* m_dropHint; ///< over everything while a folder is held over the window
};

/// A frame that is larger than the screen's free area, cut to it and moved inside; any other as it is.
QRect fittedFrame(QRect frame, const QRect& visibleArea);

/// Where a drag brings the window: the pointer keeps its place in it, but its top stops at the top of the
/// screen's free area.
QPoint draggedOrigin(QPoint currentOrigin, QPoint location, QPoint initialLocation, const QRect& visibleArea);

} // namespace marvo
