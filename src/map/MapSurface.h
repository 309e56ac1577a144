// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace marvo {

/// Call before the QApplication is made. Sets what the web engine needs to run, and OpenGL shared by all
/// windows if the machine may have a graphics processor. Without one no OpenGL driver is loaded, which
/// saves a third of the start.
void prepareForMaps();

/// Whether a graphics processor draws the maps. Without one the processor draws them and their windows. The
/// first call asks OpenGL and needs a QApplication.
bool areMapsDrawnByOpenGl();

/// Prepares a window for a map. Call it before the window is first shown.
///
/// A map drawn by OpenGL needs an OpenGL window. Any other window would be destroyed and created again when
/// its first map appears. Without a graphics processor the window stays as it is, since OpenGL would make
/// every picture far more expensive.
void prepareWindowForMap(QWidget& window);

} // namespace marvo
