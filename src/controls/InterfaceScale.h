// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>

namespace marvo {

/// The size in points that texts have unless the desktop asks for more.
constexpr double usualPointSize = 10;
/// The fixed lengths of the windows fit texts up to this size as they are.
constexpr double largestUsualPointSize = 11;

/// The interface's text size for a desktop's, in points: never less than usual, and never so large that a
/// dialog leaves a usual screen.
double interfacePointSize(double desktopPointSize);

/// How much larger than drawn the fixed lengths of the windows are: 1 for usual text sizes, beyond them in
/// proportion to the application's font.
double interfaceScale();

/// A length in pixels, or a size of some text in points, as drawn for the usual text size.
int scaledLength(int length);
QSize scaledSize(QSize size);
double scaledPoints(double points);

} // namespace marvo
