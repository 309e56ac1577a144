// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

class QApplication;

namespace marvo {

/// Gives the whole application its look: dark palette, font, style sheet and icon.
void applyAppearance(QApplication& application);

} // namespace marvo
