// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "controls/InterfaceScale.h"

#include <QRect>
#include <QSize>

namespace marvo {

enum class WindowMode { Windowed, FullScreen };

/// The least size that the window takes by its own commands, and its size at start, both for the usual text
/// size; as all lengths here they grow with a larger one.
constexpr QSize minWindowSize{1020, 640};

/// A rectangle of minWindowSize, or of its larger version where the area has room for it, centred in the
/// free area of a screen.
QRect minWindowFrame(const QRect& visibleArea, double scale = interfaceScale());

/// Where the main window's boxes lie, each in the co-ordinates of the box around it. A null rectangle is a
/// box that the mode does not show.
struct MainWindowLayout
{
    QRect backgroundBox; ///< in the window
    QRect headBox;       ///< in backgroundBox
    QRect bodyBox;       ///< in backgroundBox
    QRect bodyLeftBox;   ///< in bodyBox
    QRect bodyRightBox;  ///< in bodyBox

    QRect videoBox; ///< these four in bodyLeftBox
    QRect gsensorBox;
    QRect mediaControlBox;
    QRect mediaControlBoxForFullScreen;

    QRect sideButtonBox; ///< these two in bodyRightBox
    QRect mediaListBox;
};

MainWindowLayout layoutWindow(QSize contentSize, WindowMode mode, double scale = interfaceScale());

/// The map container's two parts, in its own co-ordinates.
struct MapContainerLayout
{
    QRect mapContainerTopView;
    QRect mapContainerBottomView;
};

MapContainerLayout layoutMapContainer(QSize size, double scale = interfaceScale());

} // namespace marvo
