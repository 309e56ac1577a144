// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/WorkArea.h"

#include <QScreen>
#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace marvo {

void centreInWorkArea(QWidget& window, const QSize& wanted)
{
    const QRect visible = window.screen()->availableGeometry();
    // Before the window is shown its frame is unknown, and the position set is that of its content.
    const int titleBar = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
    const QRect room = visible.adjusted(0, titleBar, 0, 0);
    const QSize size = wanted.boundedTo(room.size());
    const QSize free = visible.size() - size;
    window.resize(size);
    const QPoint middle = visible.topLeft() + QPoint(free.width() / 2, free.height() / 2);
    window.move(middle.x(), std::max(middle.y(), room.top()));
}

} // namespace marvo
