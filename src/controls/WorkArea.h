// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

class QSize;
class QWidget;

namespace marvo {

/// Gives a window its size and puts it into the middle of what the desktop's panels leave of its screen.
/// Where that is smaller than the window with its title bar, the window is made smaller; what it holds must
/// then scroll.
void centreInWorkArea(QWidget& window, const QSize& wanted);

} // namespace marvo
