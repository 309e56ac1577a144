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

/// The main window. It has no desktop frame: dragging its background moves it, dragging its edges resizes it.
/// Its full-screen mode returns to a set frame.
class CustomWindow : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(bool isFullScreen READ isFullScreen WRITE setIsFullScreen NOTIFY isFullScreenChanged)
public:
    enum class FrameChange { AtOnce, Animated };

    explicit CustomWindow(QWidget* parent = nullptr);
    /// A window of the rectangle's size, centred on the screen. It is opaque to its edges, so that the
    /// desktop draws its shadow.
    explicit CustomWindow(const QRect& contentRect);
    ~CustomWindow() override;

    /// The requested mode, which the desktop may not have applied yet. Hides the function of QWidget.
    bool isFullScreen() const { return m_isFullScreen; }
    /// Sets the mode and emits the signal, without changing the frame: see enterFullscreen and
    /// leaveFullscreen.
    void setIsFullScreen(bool fullScreen);
    /// Covers the window's whole screen, panels included. No effect in full screen.
    void enterFullscreen();
    /// Returns to initialFrame, or to a frame of its size if its screen is gone. No effect outside full
    /// screen.
    void leaveFullscreen();

    /// The frame after full screen. If none is set, entering full screen sets the current one.
    const QRect& initialFrame() const { return m_initialFrame; }
    void setInitialFrame(const QRect& frame) { m_initialFrame = frame; }

    /// The current frame; during an animation, its end.
    QRect frame() const;
    void setFrame(const QRect& frame, FrameChange change);
    /// Maximises the window, or restores it.
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
    bool m_frameAwaitsAnswer = false; ///< the desktop has not answered leaving full screen yet
    bool m_desktopMoves = true;       ///< until it has refused once
    WindowStatePresentation m_presentation;
    QPropertyAnimation m_frameChange;
    QTimer m_desktopSettles;
    WindowEdges* m_edges;
    QLabel* m_dropHint; ///< shown while a folder is dragged over the window
};

/// The frame, cut to the work area and moved into it where it is larger.
QRect fittedFrame(QRect frame, const QRect& visibleArea);

/// The window's origin during a drag: it follows the pointer, but its top stays below the top of the work
/// area.
QPoint draggedOrigin(QPoint currentOrigin, QPoint location, QPoint initialLocation, const QRect& visibleArea);

} // namespace marvo
