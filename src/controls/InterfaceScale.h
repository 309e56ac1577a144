// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>

namespace marvo {

/// The size in points that texts have unless the desktop asks for more.
constexpr double usualPointSize = 10;
/// The fixed lengths of the windows fit texts up to this size as they are.
constexpr double largestUsualPointSize = 11;

/// The interface's text size for a desktop's, in points: at least the usual size, and small enough for
/// dialogs to fit a usual screen.
double interfacePointSize(double desktopPointSize);

/// The factor of the windows' fixed lengths: 1 up to the largest usual text size, above it proportional to
/// the application's font.
double interfaceScale();

/// A length in pixels, or a size of some text in points, as drawn for the usual text size.
int scaledLength(int length);
QSize scaledSize(QSize size);
double scaledPoints(double points);

} // namespace marvo
