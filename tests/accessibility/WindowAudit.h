// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class QWidget;

namespace marvo::people {

/// Each tells what is wrong with a window that is shown, a line a fault; none when all is well.

/// Texts that their widget, or the widgets around it, have no room for. What is left out with three dots on
/// purpose, and what can be scrolled, is none.
QStringList cutTexts(const QWidget& window);

/// Texts without a letter of Korean, where one would expect it.
QStringList untranslatedTexts(const QWidget& window);

/// Texts whose contrast to their ground, measured in the picture of the window, is under 4.5 to 1. What is
/// disabled may be pale.
QStringList paleTexts(QWidget& window);

/// Controls that an assistive program could not name, or would not know for controls.
QStringList namelessControls(const QWidget& window);

/// Goes round the window by the Tab key: controls that are not reached, steps against the direction of
/// reading, and controls that look the same with the focus and without.
QStringList faultsOfTabbing(QWidget& window);

} // namespace marvo::people
