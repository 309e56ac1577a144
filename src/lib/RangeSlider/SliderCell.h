// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>
#include <QRectF>
#include <QVariantMap>

class QPainter;

namespace marvo {

/// The direction of the surface's y axis: down if flipped, as in all of Qt's widgets.
enum class Flip { Flipped, Unflipped };

/// The one-knob slider: its range and value, where its bar and knob lie in its frame, and how it is dragged
/// and drawn. It needs no widget. A horizontal slider grows to the
/// right, a vertical one upward.
class SliderCell
{
public:
    SliderCell() = default;
    virtual ~SliderCell() = default;
    SliderCell(const SliderCell&) = delete;
    SliderCell& operator=(const SliderCell&) = delete;

    double minValue() const { return m_minValue; }
    double maxValue() const { return m_maxValue; }
    /// The value is brought into the new range; the other bound is taken along where the new one lies beyond
    /// it. What is no finite number is ignored.
    virtual void setMinValue(double minimum);
    virtual void setMaxValue(double maximum);

    virtual double doubleValue() const { return m_value; }
    /// Clamped into the range; what is no number counts as 0.
    virtual void setDoubleValue(double value) { setBaseValue(value); }

    /// Whether a drag reports each move, or only its end.
    bool isContinuous() const { return m_continuous; }
    void setContinuous(bool continuous) { m_continuous = continuous; }
    /// The step of the arrow keys; 0, as at first, is a hundredth of the range.
    double altIncrementValue() const { return m_altIncrementValue; }
    void setAltIncrementValue(double increment) { m_altIncrementValue = increment; }

    Qt::Orientation orientation() const { return m_orientation; }
    void setOrientation(Qt::Orientation orientation) { m_orientation = orientation; }
    /// The room for the slider, in the coordinates of the surface.
    QRectF frame() const { return m_frame; }
    void setFrame(const QRectF& frame) { m_frame = frame; }
    bool isEnabled() const { return m_enabled; }
    void setEnabled(bool enabled) { m_enabled = enabled; }

    /// The bar: as long as the frame, across its middle.
    QRectF barRect() const;
    /// The knob's place for a value of the range.
    QRectF knobRect(double value, Flip flip) const;
    /// The value whose knob has its centre at a point; beyond the ends, the bound.
    double valueAt(QPointF point, Flip flip) const;

    /// The press of a drag. A knob hit by the point is held there, else its centre jumps to the point.
    virtual void startTracking(QPointF point, Flip flip);
    virtual void continueTracking(QPointF point);
    virtual void stopTracking() { m_tracking = false; }
    bool isTracking() const { return m_tracking; }

    /// Draws the slider into its frame.
    virtual void draw(QPainter& painter, const QPalette& palette, Flip flip);

    /// The archived form: what the slider is set to, by name. Decoding leaves as it is what is not there or
    /// is no number, and brings the value into the range.
    virtual QVariantMap encode() const;
    virtual void decode(const QVariantMap& archive);

    /// The knob's size along the bar and across it, and the bar's thickness, in device-independent pixels.
    static constexpr double knobLength = 16;
    static constexpr double knobThickness = 24;
    static constexpr double barThickness = 8;

protected:
    /// The dragged knob's value.
    double baseValue() const { return m_value; }
    void setBaseValue(double value);
    void setRange(double minimum, double maximum);
    /// Where the dragged knob is now that the mouse is at a point.
    double trackedValueAt(QPointF point) const { return valueAt(point - m_grip, m_trackingFlip); }
    /// The step of the arrow keys, a positive number.
    double keyStep() const;

    virtual void drawBar(QPainter& painter, const QRectF& bar, Flip flip);
    virtual void drawKnob(QPainter& painter, const QRectF& knob);

    /// The look of the knob being drawn.
    const QPalette& palette() const { return m_palette; }
    void setPalette(const QPalette& palette) { m_palette = palette; }
    void setHighlighted(bool highlighted) { m_highlighted = highlighted; }
    bool isHighlighted() const { return m_highlighted; }

private:
    double m_minValue = 0;
    double m_maxValue = 100;
    double m_value = 0;
    double m_altIncrementValue = 0;
    bool m_continuous = true;
    bool m_enabled = true;
    Qt::Orientation m_orientation = Qt::Horizontal;
    QRectF m_frame;

    bool m_tracking = false;
    QPointF m_grip;
    Flip m_trackingFlip = Flip::Flipped;

    bool m_highlighted = false;
    QPalette m_palette;
};

} // namespace marvo
