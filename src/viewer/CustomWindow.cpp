// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/CustomWindow.h"

#include "viewer/WindowEdges.h"

#include <QDragEnterEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QScreen>
#include <QStyle>
#include <QUrl>
#include <QWindow>

#include <algorithm>

namespace marvo {

namespace {

constexpr int frameChangeMs = 160;

QString droppedPath(const QMimeData& data)
{
    for (const QUrl& url : data.urls())
        if (url.isLocalFile())
            return url.toLocalFile();
    return {};
}

} // namespace

QPoint draggedOrigin(QPoint currentOrigin, QPoint location, QPoint initialLocation, const QRect& visibleArea)
{
    const QPoint moved = currentOrigin + location - initialLocation;
    return {moved.x(), std::max(moved.y(), visibleArea.top())};
}

CustomWindow::CustomWindow(QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint | Qt::WindowMinMaxButtonsHint |
                          Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint),
      m_frameChange(this, "geometry"),
      m_edges(new WindowEdges(*this))
{
    setObjectName(QStringLiteral("window"));
    setAttribute(Qt::WA_StyledBackground);
    setAcceptDrops(true);
}

CustomWindow::~CustomWindow() = default;

void CustomWindow::setIsFullScreen(bool fullScreen)
{
    m_isFullScreen = fullScreen;
    m_edges->setActive(!fullScreen);
    Q_EMIT isFullScreenChanged(fullScreen);
}

void CustomWindow::enterFullscreen()
{
    if (m_isFullScreen)
        return;
    const QRect before = frame();
    m_frameChange.stop();
    setIsFullScreen(true);
    if (m_initialFrame.width() == 0 || m_initialFrame.height() == 0)
        m_initialFrame = before;
    // The state makes the desktop take its panels away; the frame is right also where no desktop listens.
    setWindowState((windowState() & ~Qt::WindowMaximized) | Qt::WindowFullScreen);
    setGeometry(screen()->geometry());
}

void CustomWindow::leaveFullscreen()
{
    if (!m_isFullScreen)
        return;
    setIsFullScreen(false);
    setWindowState(windowState() & ~(Qt::WindowFullScreen | Qt::WindowMaximized));
    setFrame(m_initialFrame, FrameChange::AtOnce);
}

QRect CustomWindow::frame() const
{
    return m_frameChange.state() == QAbstractAnimation::Running ? m_frameChange.endValue().toRect()
                                                                : geometry();
}

void CustomWindow::setFrame(const QRect& newFrame, FrameChange change)
{
    m_frameChange.stop();
    const bool animate = change == FrameChange::Animated && isVisible() &&
                         style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0;
    if (!animate || newFrame == geometry()) {
        setGeometry(newFrame);
        return;
    }
    m_frameChange.setDuration(frameChangeMs);
    m_frameChange.setEasingCurve(QEasingCurve::OutCubic);
    m_frameChange.setStartValue(geometry());
    m_frameChange.setEndValue(newFrame);
    m_frameChange.start();
}

void CustomWindow::toggleZoom()
{
    if (m_isFullScreen)
        return;
    m_frameChange.stop();
    setWindowState(windowState() ^ Qt::WindowMaximized);
}

bool CustomWindow::event(QEvent* event)
{
    const bool handled = QWidget::event(event);
    // A dialog has closed; not every desktop gives the keyboard back by itself.
    if (event->type() == QEvent::WindowUnblocked)
        activateWindow();
    return handled;
}

void CustomWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && m_isFullScreen) {
        leaveFullscreen();
        return;
    }
    QWidget::keyPressEvent(event);
}

void CustomWindow::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return QWidget::mousePressEvent(event);
    m_initialLocation = event->position().toPoint();
    m_pressed = true;
    m_movedByDesktop = false;
}

void CustomWindow::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_pressed || !(event->buttons() & Qt::LeftButton) || m_isFullScreen || m_movedByDesktop)
        return QWidget::mouseMoveEvent(event);
    if (windowHandle() && windowHandle()->startSystemMove()) {
        m_movedByDesktop = true; // and the release of the button is the desktop's, too
        return;
    }
    m_frameChange.stop();
    const QPoint location = mapFromGlobal(event->globalPosition().toPoint());
    const QRect visible = QGuiApplication::primaryScreen()->availableGeometry();
    move(draggedOrigin(pos(), location, m_initialLocation, visible));
}

void CustomWindow::mouseReleaseEvent(QMouseEvent* event)
{
    m_pressed = false;
    QWidget::mouseReleaseEvent(event);
}

void CustomWindow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    Q_EMIT contentResized();
    m_edges->follow();
}

void CustomWindow::closeEvent(QCloseEvent* event)
{
    Q_EMIT windowWillClose();
    QWidget::closeEvent(event);
}

void CustomWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!droppedPath(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void CustomWindow::dropEvent(QDropEvent* event)
{
    const QString path = droppedPath(*event->mimeData());
    if (path.isEmpty())
        return;
    event->acceptProposedAction();
    const QFileInfo dropped(path);
    Q_EMIT folderDropped(dropped.isDir() ? dropped.absoluteFilePath() : dropped.absolutePath());
}

void CustomWindow::paintEvent(QPaintEvent* event)
{
    QWidget::paintEvent(event);
    if (m_isFullScreen)
        return;
    // A frameless window needs an edge of its own, or it melts into what lies behind it.
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Dark));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.setPen(palette().color(QPalette::Light));
    painter.drawLine(1, 1, width() - 2, 1);
}

} // namespace marvo
