// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

class QScreen;
class QWidget;

namespace marvo {

/// What an application asks the desktop to put away while a window of its own covers a screen; bits.
enum PresentationOption : unsigned { AutoHideDock = 1, AutoHideMenuBar = 4 };
inline constexpr unsigned noPresentationOptions = 0;

/// A screen's whole area, and what the desktop's panels leave of it.
struct ScreenAreas
{
    QRect frame;
    QRect visibleFrame;

    /// Whether the desktop reports its panels. A free area as large as the screen proves nothing: Wayland
    /// reports none, X11 none with several screens, and a panel that hides takes no room.
    bool tellsPanels() const { return visibleFrame != frame; }
    /// A panel along the top edge; true also where it is not known.
    bool hasMenuBar() const;
    /// A panel along another edge; true also where it is not known.
    bool hasDock() const;
};

/// The options, plus those needed for the screen's panels.
unsigned withFullscreenOptions(unsigned options, const ScreenAreas& screen);
/// The options, minus those needed for the screen's panels.
unsigned withoutFullscreenOptions(unsigned options, const ScreenAreas& screen);

/// A number for a screen. It stays the same while the program runs, even if the screen is unplugged and
/// plugged in again.
quint32 displayID(const QScreen& screen);
bool isScreen(const QScreen& screen, const QScreen& other);
/// The first screen of that number, or none.
QScreen* screenWithDisplayID(quint32 id);
ScreenAreas areasOf(const QScreen& screen);

/// True on Wayland: there the desktop alone says where a window is, which windows are above others, and how
/// large one is that leaves full screen or the maximised state.
bool desktopPlacesWindows();

/// Keeps a window above another one where nothing but the desktop could (desktopPlacesWindows): on Wayland a
/// window cannot raise itself. Neither blocks the other. Call before the window is shown.
void keepAbove(QWidget& window, const QWidget& below);

/// The desktop's side of full screen. Main thread.
class Presentation
{
public:
    virtual ~Presentation() = default;

    /// The options that hold now.
    virtual unsigned options() const = 0;
    /// Requests them for the window's screen. The window need not be shown yet.
    virtual void setOptions(QWidget& window, unsigned options) = 0;

    /// Call these when a window is about to cover its screen and when it stops. What was added on entering
    /// is removed on leaving, even if the panels have changed meanwhile.
    void setFullscreenPresentationOptions(QWidget& window, const ScreenAreas& screen);
    void setNonFullscreenPresentationOptions(QWidget& window, const ScreenAreas& screen);

private:
    unsigned m_added = noPresentationOptions; ///< by the entering that has not been left yet
};

/// By the window's full-screen state ("_NET_WM_STATE_FULLSCREEN" on X11, the top level's full-screen request
/// on Wayland): the desktop then takes its panels away together, on the one screen.
class WindowStatePresentation : public Presentation
{
public:
    unsigned options() const override { return m_options; }
    void setOptions(QWidget& window, unsigned options) override;

private:
    unsigned m_options = noPresentationOptions;
};

} // namespace marvo
