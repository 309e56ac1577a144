// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtTest>
#include <QWidget>

namespace marvo::testing {

/// Shows a window and gives it the keyboard, also where no window manager would.
inline bool showActive(QWidget& window)
{
    window.show();
    window.activateWindow();
    return QTest::qWaitForWindowActive(&window);
}

} // namespace marvo::testing
