// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace marvo {

/// A tool tip that shows a text, such as a file name, as it is. Qt renders tool tips that look like HTML.
QString plainToolTip(const QString& text);

} // namespace marvo
