// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "lib/RangeSlider/SliderCell.h"

#include <algorithm>
#include <cmath>
#include <QPainter>

namespace marvo {

namespace {

/// Reads a finite number of an archive.
void readNumber(const QVariantMap& archive, const QString& key, double& number)
{
    bool isNumber = false;
    const double value = archive.value(key).toDouble(&isNumber);
    if (isNumber && std::isfinite(value))
        number = value;
}

} // namespace

void SliderCell::setMinValue(double minimum)
{
    if (!std::isfinite(minimum))
        return;
    setRange(minimum, std::max(minimum, m_maxValue));
    setBaseValue(m_value);
}

void SliderCell::setMaxValue(double maximum)
{
    if (!std::isfinite(maximum))
        return;
    setRange(std::min(m_minValue, maximum), maximum);
    setBaseValue(m_value);
}

void SliderCell::setRange(double minimum, double maximum)
{
    m_minValue = minimum;
    m_maxValue = maximum;
}

void SliderCell::setBaseValue(double value)
{
    m_value = std::clamp(std::isnan(value) ? 0.0 : value, m_minValue, m_maxValue);
}

double SliderCell::keyStep() const
{
    return m_altIncrementValue > 0 ? m_altIncrementValue : (m_maxValue - m_minValue) / 100;
}

QRectF SliderCell::barRect() const
{
    QRectF bar(0, 0, m_frame.width(), barThickness);
    if (m_orientation == Qt::Vertical)
        bar = QRectF(0, 0, barThickness, m_frame.height());
    bar.moveCenter(m_frame.center());
    return bar;
}

QRectF SliderCell::knobRect(double value, Flip flip) const
{
    const double range = m_maxValue - m_minValue;
    const double fraction = range > 0 ? (value - m_minValue) / range : 0;
    if (m_orientation == Qt::Horizontal) {
        const double travel = std::max(0.0, m_frame.width() - knobLength);
        return {m_frame.x() + fraction * travel, m_frame.center().y() - knobThickness / 2, knobLength,
                knobThickness};
    }
    const double travel = std::max(0.0, m_frame.height() - knobLength);
    const double offset = (flip == Flip::Flipped ? 1 - fraction : fraction) * travel;
    return {m_frame.center().x() - knobThickness / 2, m_frame.y() + offset, knobThickness, knobLength};
}

double SliderCell::valueAt(QPointF point, Flip flip) const
{
    const bool horizontal = m_orientation == Qt::Horizontal;
    const double travel = (horizontal ? m_frame.width() : m_frame.height()) - knobLength;
    if (travel <= 0)
        return m_minValue;
    const QPointF offset = point - m_frame.topLeft();
    double fraction = ((horizontal ? offset.x() : offset.y()) - knobLength / 2) / travel;
    fraction = std::clamp(fraction, 0.0, 1.0);
    if (!horizontal && flip == Flip::Flipped)
        fraction = 1 - fraction;
    // Exact at both ends.
    return (1 - fraction) * m_minValue + fraction * m_maxValue;
}

void SliderCell::startTracking(QPointF point, Flip flip)
{
    m_tracking = true;
    m_trackingFlip = flip;
    const QRectF knob = knobRect(m_value, flip);
    const bool hit = knob.contains(point);
    m_grip = hit ? point - knob.center() : QPointF();
    if (!hit)
        continueTracking(point);
}

void SliderCell::continueTracking(QPointF point) { setBaseValue(trackedValueAt(point)); }

void SliderCell::draw(QPainter& painter, const QPalette& palette, Flip flip)
{
    setPalette(palette);
    drawBar(painter, barRect(), flip);
    setHighlighted(m_tracking);
    drawKnob(painter, knobRect(m_value, flip));
}

void SliderCell::drawBar(QPainter& painter, const QRectF& bar, Flip)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_palette.color(QPalette::Mid));
    painter.drawRoundedRect(bar, barThickness / 2, barThickness / 2);
    painter.restore();
}

void SliderCell::drawKnob(QPainter& painter, const QRectF& knob)
{
    const QPalette::ColorGroup group = m_enabled ? QPalette::Active : QPalette::Disabled;
    QColor fill = m_palette.color(group, QPalette::Button);
    if (m_highlighted)
        fill = m_palette.color(group, QPalette::Highlight);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(m_palette.color(group, QPalette::ButtonText), 1));
    painter.setBrush(fill);
    painter.drawRoundedRect(knob.adjusted(2.5, 2.5, -2.5, -2.5), 4, 4);
    painter.restore();
}

QVariantMap SliderCell::encode() const
{
    return {{QStringLiteral("minValue"), m_minValue},
            {QStringLiteral("maxValue"), m_maxValue},
            {QStringLiteral("value"), m_value},
            {QStringLiteral("altIncrementValue"), m_altIncrementValue},
            {QStringLiteral("continuous"), m_continuous},
            {QStringLiteral("vertical"), m_orientation == Qt::Vertical}};
}

void SliderCell::decode(const QVariantMap& archive)
{
    readNumber(archive, QStringLiteral("minValue"), m_minValue);
    readNumber(archive, QStringLiteral("maxValue"), m_maxValue);
    m_maxValue = std::max(m_minValue, m_maxValue);
    readNumber(archive, QStringLiteral("value"), m_value);
    setBaseValue(m_value);
    readNumber(archive, QStringLiteral("altIncrementValue"), m_altIncrementValue);
    m_continuous = archive.value(QStringLiteral("continuous"), m_continuous).toBool();
    const bool vertical = archive.value(QStringLiteral("vertical"), m_orientation == Qt::Vertical).toBool();
    m_orientation = vertical ? Qt::Vertical : Qt::Horizontal;
}

} // namespace marvo
