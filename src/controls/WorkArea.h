// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

class QSize;
class QWidget;

namespace marvo {

/// Sizes a window and centres it in the screen's work area, which excludes the desktop's panels. A window
/// that does not fit with its title bar is made smaller; its content must then scroll.
void centreInWorkArea(QWidget& window, const QSize& wanted);

} // namespace marvo
