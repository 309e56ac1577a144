// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "platform/Screens.h"

#include <QGuiApplication>
#include <QHash>
#include <QLoggingCategory>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#include <utility>

namespace marvo {

namespace {

Q_LOGGING_CATEGORY(logScreens, "marvo.screens")

unsigned fullscreenOptions(const ScreenAreas& screen)
{
    unsigned options = noPresentationOptions;
    if (screen.hasMenuBar())
        options |= AutoHideMenuBar;
    if (screen.hasMenuBar() || screen.hasDock())
        options |= AutoHideDock;
    return options;
}

} // namespace

bool ScreenAreas::hasMenuBar() const { return !tellsPanels() || visibleFrame.top() > frame.top(); }

bool ScreenAreas::hasDock() const
{
    const int menuBarThickness = hasMenuBar() ? visibleFrame.top() - frame.top() : 0;
    return !tellsPanels() || visibleFrame.width() < frame.width() ||
           visibleFrame.height() + menuBarThickness < frame.height();
}

unsigned withFullscreenOptions(unsigned options, const ScreenAreas& screen)
{
    return options | fullscreenOptions(screen);
}

unsigned withoutFullscreenOptions(unsigned options, const ScreenAreas& screen)
{
    return options & ~fullscreenOptions(screen);
}

quint32 displayID(const QScreen& screen)
{
    // Only the connector's name identifies a screen on every desktop.
    static QHash<QString, quint32> ids;
    const QString name = screen.name();
    const auto known = ids.constFind(name);
    return known != ids.constEnd() ? *known : *ids.insert(name, static_cast<quint32>(ids.size()) + 1);
}

bool isScreen(const QScreen& screen, const QScreen& other) { return displayID(screen) == displayID(other); }

QScreen* screenWithDisplayID(quint32 id)
{
    for (QScreen* screen : QGuiApplication::screens())
        if (displayID(*screen) == id)
            return screen;
    return nullptr;
}

ScreenAreas areasOf(const QScreen& screen) { return {screen.geometry(), screen.availableGeometry()}; }

bool desktopPlacesWindows()
{
    return QGuiApplication::platformName().startsWith(QLatin1StringView("wayland"));
}

void keepAbove(QWidget& window, const QWidget& below)
{
    if (!desktopPlacesWindows())
        return;
    window.winId(); // makes the window that has the property
    window.windowHandle()->setTransientParent(below.window()->windowHandle());
}

void Presentation::setFullscreenPresentationOptions(QWidget& window, const ScreenAreas& screen)
{
    const unsigned before = options();
    const unsigned wanted = withFullscreenOptions(before, screen);
    m_added |= wanted & ~before;
    setOptions(window, wanted);
}

void Presentation::setNonFullscreenPresentationOptions(QWidget& window, const ScreenAreas& screen)
{
    // The panels or the screen may have changed: an option left behind would keep covering the screen.
    const unsigned added = std::exchange(m_added, noPresentationOptions);
    setOptions(window, withoutFullscreenOptions(options(), screen) & ~added);
}

void WindowStatePresentation::setOptions(QWidget& window, unsigned options)
{
    m_options = options;
    qCDebug(logScreens, "presentation options %u on screen %u", options, displayID(*window.screen()));
    Qt::WindowStates state = window.windowState();
    // Leaving sets a frame, which a maximised window does not have. Where the desktop decides, the window
    // comes back maximised.
    if (!desktopPlacesWindows())
        state &= ~Qt::WindowMaximized;
    state.setFlag(Qt::WindowFullScreen, (options & (AutoHideDock | AutoHideMenuBar)) != 0);
    window.setWindowState(state);
}

} // namespace marvo
