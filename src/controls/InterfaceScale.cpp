// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/InterfaceScale.h"

#include <QApplication>
#include <QFont>

#include <algorithm>
#include <cmath>

namespace marvo {

namespace {

constexpr double largestPointSize = 18;

/// A font set in pixels has no point size.
double fontPoints() { return interfacePointSize(QApplication::font().pointSizeF()); }

} // namespace

double interfacePointSize(double desktopPointSize)
{
    return std::clamp(desktopPointSize, usualPointSize, largestPointSize);
}

double interfaceScale()
{
    const double points = fontPoints();
    return points > largestUsualPointSize ? points / usualPointSize : 1;
}

int scaledLength(int length) { return static_cast<int>(std::lround(length * interfaceScale())); }

QSize scaledSize(QSize size) { return {scaledLength(size.width()), scaledLength(size.height())}; }

double scaledPoints(double points) { return points * fontPoints() / usualPointSize; }

} // namespace marvo
