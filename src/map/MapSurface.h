// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace marvo {

/// Settles, before the QApplication is made, what maps need of it later: how their engine is let run, and
/// OpenGL that all windows share where the machine may have a graphics processor. Without one no driver of
/// OpenGL is loaded, which is a third of the time that the application takes to start.
void prepareForMaps();

/// Whether maps are drawn by a graphics processor; where they are not, the processor draws them, and the
/// windows around them. Asks OpenGL at the first call. There must be a QApplication.
bool areMapsDrawnByOpenGl();

/// Makes a window, before it is first shown, one that can take a map later on.
///
/// A map that is drawn by OpenGL needs a window that is, too, and one that was made for anything else is
/// taken off the screen and made anew when the first map appears in it. Without a graphics processor the
/// window stays as it is: drawn by OpenGL, every picture of a recording would cost far more.
void prepareWindowForMap(QWidget& window);

} // namespace marvo
