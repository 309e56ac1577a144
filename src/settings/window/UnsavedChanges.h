// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class QWidget;

namespace marvo {

/// Asks on a sheet over the window what becomes of changed settings before the window closes. One of the two
/// is called, or neither when the user goes on editing.
void askAboutUnsavedChanges(QWidget& window, std::function<void()> save, std::function<void()> discard);

} // namespace marvo
