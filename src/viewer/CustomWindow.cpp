// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/CustomWindow.h"

#include "texts/Localisation.h"
#include "viewer/WindowEdges.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QPainter>
#include <QScreen>
#include <QStyle>
#include <QStyleHints>
#include <QUrl>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace marvo {

namespace {

constexpr int frameChangeMs = 160;
constexpr int desktopSettlesMs = 300;

/// The first local file of the dragged data; empty if there is none.
std::string droppedPath(const QMimeData& data)
{
    for (const QUrl& url : data.urls()) {
        if (!url.isLocalFile())
            continue;
        // As bytes: a name on a card need not be UTF-8.
        const QByteArray path = QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
        if (path.startsWith('/') && !path.contains('\0'))
            return path.toStdString();
    }
    return {};
}

/// Never accept a move: the source might delete the folder.
void takeAsCopy(QDropEvent& event)
{
    if (!(event.possibleActions() & Qt::CopyAction))
        return event.acceptProposedAction();
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

/// The frame, or if its screen is gone, one of the same size centred on the other screen.
QRect frameOnScreen(QRect frame, const QScreen& other)
{
    const auto shows = [&frame](const QScreen* screen) { return screen->geometry().intersects(frame); };
    if (!std::ranges::any_of(QGuiApplication::screens(), shows))
        frame.moveCenter(other.availableGeometry().center());
    return frame;
}

} // namespace

QRect fittedFrame(QRect frame, const QRect& visibleArea)
{
    if (frame.width() > visibleArea.width()) {
        frame.setWidth(visibleArea.width());
        frame.moveLeft(visibleArea.left());
    }
    if (frame.height() > visibleArea.height()) {
        frame.setHeight(visibleArea.height());
        frame.moveTop(visibleArea.top());
    }
    return frame;
}

QPoint draggedOrigin(QPoint currentOrigin, QPoint location, QPoint initialLocation, const QRect& visibleArea)
{
    const QPoint moved = currentOrigin + location - initialLocation;
    return {moved.x(), std::max(moved.y(), visibleArea.top())};
}

CustomWindow::CustomWindow(QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint | Qt::WindowMinMaxButtonsHint |
                          Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint),
      m_frameChange(this, "geometry"),
      m_edges(new WindowEdges(*this)),
      m_dropHint(new QLabel(localised("folders.dropHere"), this))
{
    setObjectName(QStringLiteral("window"));
    setAttribute(Qt::WA_StyledBackground);
    setAcceptDrops(true);
    m_desktopSettles.setSingleShot(true);
    m_desktopSettles.setInterval(desktopSettlesMs);
    connect(&m_desktopSettles, &QTimer::timeout, this, &CustomWindow::followDesktop);
    m_frameChange.setDuration(frameChangeMs);
    m_frameChange.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_frameChange, &QPropertyAnimation::finished, this, &CustomWindow::coverScreen);
    m_dropHint->setObjectName(QStringLiteral("dropHint"));
    m_dropHint->setAlignment(Qt::AlignCenter);
    m_dropHint->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_dropHint->hide();
}

CustomWindow::CustomWindow(const QRect& contentRect) : CustomWindow(nullptr)
{
    QRect centred(QPoint(0, 0), contentRect.size());
    centred.moveCenter(screen()->geometry().center());
    setGeometry(centred);
}

CustomWindow::~CustomWindow() = default;

void CustomWindow::setIsFullScreen(bool fullScreen)
{
    if (m_isFullScreen == fullScreen)
        return;
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
    m_frameAwaitsAnswer = false;
    // The frame first: setting it later would end the full-screen state. On Wayland it would become the size
    // after full screen.
    if (!desktopPlacesWindows())
        changeGeometry(screen()->geometry(), FrameChange::Animated);
    coverScreen();
}

/// Asks the desktop for its full-screen state once the animation has ended.
void CustomWindow::coverScreen()
{
    if (m_isFullScreen && m_frameChange.state() != QAbstractAnimation::Running)
        m_presentation.setFullscreenPresentationOptions(*this, areasOf(*screen()));
}

void CustomWindow::leaveFullscreen()
{
    if (!m_isFullScreen)
        return;
    setIsFullScreen(false);
    m_frameChange.stop();
    m_presentation.setNonFullscreenPresentationOptions(*this, areasOf(*screen()));
    if (desktopPlacesWindows()) {
        m_frameAwaitsAnswer = true; // a size set before the answer is lost or violates the protocol
        m_desktopSettles.start();
        return;
    }
    setFrame(frameOnScreen(m_initialFrame, *screen()), FrameChange::Animated);
}

void CustomWindow::takeRestoredFrame()
{
    const bool isFloating = !(windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen));
    if (std::exchange(m_frameAwaitsAnswer, false) && isFloating)
        setFrame(frameOnScreen(m_initialFrame, *screen()), FrameChange::AtOnce);
}

QRect CustomWindow::frame() const
{
    return m_frameChange.state() == QAbstractAnimation::Running ? m_frameChange.endValue().toRect()
                                                                : geometry();
}

void CustomWindow::setFrame(const QRect& wanted, FrameChange change)
{
    m_frameChange.stop();
    const QScreen* target = QGuiApplication::screenAt(wanted.center());
    changeGeometry(fittedFrame(wanted, (target ? target : screen())->availableGeometry()), change);
}

void CustomWindow::changeGeometry(const QRect& newFrame, FrameChange change)
{
    const bool animate = change == FrameChange::Animated && isVisible() &&
                         style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0;
    if (!animate || newFrame == geometry()) {
        setGeometry(newFrame);
        return;
    }
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
    // A dialog has closed. Not every desktop returns the focus; a nested dialog returns it to the outer one.
    if (event->type() == QEvent::WindowUnblocked && QApplication::activeModalWidget() == nullptr)
        activateWindow();
    return handled;
}

void CustomWindow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    // Delayed: this may answer the first of two quick requests.
    if (event->type() == QEvent::WindowStateChange)
        m_desktopSettles.start();
}

/// Follows a full-screen change made by the desktop, such as by its own key.
void CustomWindow::followDesktop()
{
    if (windowState() & Qt::WindowMinimized)
        return;
    const bool covers = windowState() & Qt::WindowFullScreen;
    if (covers && !m_isFullScreen)
        enterFullscreen();
    else if (!covers && m_isFullScreen && m_frameChange.state() != QAbstractAnimation::Running)
        leaveFullscreen();
    else
        takeRestoredFrame();
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
    if (moveByDesktop(event->position().toPoint()))
        return;
    m_frameChange.stop();
    const QPoint location = mapFromGlobal(event->globalPosition().toPoint());
    const QRect visible = QGuiApplication::primaryScreen()->availableGeometry();
    move(draggedOrigin(pos(), location, m_initialLocation, visible));
}

/// True if the desktop moves the window, now or once the pointer has moved the drag distance. Then the
/// desktop grabs the mouse.
bool CustomWindow::moveByDesktop(QPoint location)
{
    if (!m_desktopMoves || !windowHandle())
        return false;
    if ((location - m_initialLocation).manhattanLength() < QGuiApplication::styleHints()->startDragDistance())
        return true;
    m_desktopMoves = windowHandle()->startSystemMove();
    m_movedByDesktop = m_desktopMoves; // the desktop also gets the button release
    return m_desktopMoves;
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
    if (m_frameAwaitsAnswer) // the answer
        QTimer::singleShot(0, this, &CustomWindow::takeRestoredFrame);
}

void CustomWindow::closeEvent(QCloseEvent* event)
{
    Q_EMIT windowWillClose();
    QWidget::closeEvent(event);
}

void CustomWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (droppedPath(*event->mimeData()).empty())
        return;
    takeAsCopy(*event);
    m_dropHint->setGeometry(rect().adjusted(8, 8, -8, -8));
    m_dropHint->raise();
    m_dropHint->show();
}

void CustomWindow::dragLeaveEvent(QDragLeaveEvent*) { m_dropHint->hide(); }

void CustomWindow::dropEvent(QDropEvent* event)
{
    m_dropHint->hide();
    const std::string path = droppedPath(*event->mimeData());
    if (path.empty())
        return;
    takeAsCopy(*event);
    Q_EMIT dropped(path);
}

void CustomWindow::paintEvent(QPaintEvent* event)
{
    QWidget::paintEvent(event);
    if (m_isFullScreen)
        return;
    // A frameless window needs a visible edge against what is behind it.
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Dark));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.setPen(palette().color(QPalette::Light));
    painter.drawLine(1, 1, width() - 2, 1);
}

} // namespace marvo
