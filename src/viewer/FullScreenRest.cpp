// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/FullScreenRest.h"

#include "viewer/CustomWindow.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWindow>

namespace marvo {

FullScreenRest::FullScreenRest(CustomWindow& window, const QWidget& controlBar,
                               std::chrono::milliseconds timeToRest)
    : QObject(&window), m_window(window), m_controlBar(controlBar)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(timeToRest);
    connect(&m_timer, &QTimer::timeout, this, &FullScreenRest::rest);
    connect(&window, &CustomWindow::isFullScreenChanged, this, &FullScreenRest::fullScreenChanged);
}

void FullScreenRest::fullScreenChanged(bool fullScreen)
{
    if (fullScreen) {
        m_lastPoint = QCursor::pos();
        // Not every view in the window asks for moves without a button; the window itself hears of all.
        qApp->installEventFilter(this);
        wake(Woken::PointerAndBar);
    } else {
        qApp->removeEventFilter(this);
        m_timer.stop();
        setPointerHidden(false);
        setBarConcealed(false);
    }
}

bool FullScreenRest::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease: {
        if (watched != m_window.windowHandle())
            break;
        // A view that comes or goes under a resting pointer makes a move to the same place.
        const QPoint point = static_cast<QMouseEvent*>(event)->globalPosition().toPoint();
        if (event->type() != QEvent::MouseMove || point != m_lastPoint)
            wake(Woken::PointerAndBar);
        m_lastPoint = point;
        break;
    }
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
        if (watched == m_window.windowHandle())
            wake(Woken::Bar);
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void FullScreenRest::wake(Woken woken)
{
    if (woken == Woken::PointerAndBar)
        setPointerHidden(false);
    setBarConcealed(false);
    m_timer.start();
}

void FullScreenRest::rest()
{
    if (isInUse()) {
        m_timer.start();
        return;
    }
    setPointerHidden(true);
    setBarConcealed(true);
}

bool FullScreenRest::isInUse() const
{
    const QWidget* focus = QApplication::focusWidget();
    return QGuiApplication::mouseButtons() != Qt::NoButton || QApplication::activePopupWidget() ||
           QApplication::activeModalWidget() || m_controlBar.underMouse() ||
           (focus && m_controlBar.isAncestorOf(focus));
}

void FullScreenRest::setPointerHidden(bool hidden)
{
    if (hidden)
        m_window.setCursor(Qt::BlankCursor);
    else
        m_window.unsetCursor();
}

void FullScreenRest::setBarConcealed(bool concealed)
{
    if (m_barConcealed == concealed)
        return;
    m_barConcealed = concealed;
    Q_EMIT barConcealed(concealed);
}

} // namespace marvo
