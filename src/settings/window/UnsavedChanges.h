// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class QWidget;

namespace marvo {

/// Asks on a sheet over the window whether to save changed settings. Calls `save` or `discard`, or neither if
/// the user cancels.
void askAboutUnsavedChanges(QWidget& window, std::function<void()> save, std::function<void()> discard);

} // namespace marvo
