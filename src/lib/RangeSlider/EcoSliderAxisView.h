// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QRectF>
#include <QWidget>

namespace marvo {

/// The scale under a range slider: 22 ticks, every tenth a long one. It is made as wide as the slider.
class EcoSliderAxisView : public QWidget
{
    Q_OBJECT
public:
    using QWidget::QWidget;

    /// The ticks of a view of a width, from left to right; the last lies beyond the view's edge at most
    /// widths.
    static QList<QRectF> ticks(double width);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace marvo
