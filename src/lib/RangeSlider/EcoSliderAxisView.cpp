// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "lib/RangeSlider/EcoSliderAxisView.h"

#include <QPainter>

namespace marvo {

namespace {

constexpr int tickCount = 22;
constexpr int longTickEvery = 10;

} // namespace

QList<QRectF> EcoSliderAxisView::ticks(double width)
{
    const double step = (width + 32) / tickCount;
    QList<QRectF> ticks;
    for (int i = 0; i < tickCount; ++i) {
        const double x = 8 + i * step;
        ticks.append(i % longTickEvery == 0 ? QRectF(x, 3, 1, 8) : QRectF(x, 5, 1, 5));
    }
    return ticks;
}

QSize EcoSliderAxisView::sizeHint() const { return {496, 14}; }

void EcoSliderAxisView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    const QColor color = palette().color(group, QPalette::WindowText);
    for (const QRectF& tick : ticks(width()))
        painter.fillRect(tick, color);
}

} // namespace marvo
