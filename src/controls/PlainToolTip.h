// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace marvo {

/// A tool tip for a text that is not ours, such as a file's name: tool tips that look like HTML are taken for
/// it.
QString plainToolTip(const QString& text);

} // namespace marvo
