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

    /// Whether the desktop tells of its panels. A free area as large as the screen says nothing: Wayland
    /// tells none, X11 not with several screens, and a panel that hides by itself takes no room.
    bool tellsPanels() const { return visibleFrame != frame; }
    /// A panel along the top edge; true also where it is not known.
    bool hasMenuBar() const;
    /// A panel along another edge; true also where it is not known.
    bool hasDock() const;
};

/// The options with those added that the screen's panels call for.
unsigned withFullscreenOptions(unsigned options, const ScreenAreas& screen);
/// The options without those that the screen's panels call for.
unsigned withoutFullscreenOptions(unsigned options, const ScreenAreas& screen);

/// A number for a screen that stays its own while the program runs, also when it is unplugged and comes back.
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
    /// Asks the desktop for them on the screen of the window, which need not be shown yet.
    virtual void setOptions(QWidget& window, unsigned options) = 0;

    /// For a window that is about to cover its screen, and for one that no longer does. The screen's areas
    /// are those of the moment: what was added on entering goes again even if the panels have changed
    /// meanwhile.
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
