// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "lib/RangeSlider/SliderCell.h"
#include "lib/RangeSlider/SliderValueForms.h"

#include <QPixmap>

namespace marvo {

/// The interface of the control that shows a double slider's cell.
class SMDoubleSliderCellView
{
public:
    /// A part of the control needs repainting.
    virtual void redraw(const QRectF& part) = 0;
    /// The low or the high value has changed.
    virtual void cellValuesChanged() = 0;
    /// The user moved a knob.
    virtual void updateBoundControllerLoValue(double value) = 0;
    virtual void updateBoundControllerHiValue(double value) = 0;

protected:
    ~SMDoubleSliderCellView() = default;
};

/// The slider with a low knob and a high knob that selects a range of its own range:
/// minimum <= low value <= high value <= maximum, at any time.
///
/// One of the knobs is active: it takes the keys and is what the accessors without Lo or Hi in their name
/// mean. Locked knobs move as one: setting or dragging either sets both.
class SMDoubleSliderCell : public SliderCell, public SliderValueForms<SMDoubleSliderCell>
{
public:
    /// The control; none is needed. Not owned.
    void setView(SMDoubleSliderCellView* view) { m_view = view; }

    /// Both values are brought into the new range.
    void setMinValue(double minimum) override;
    void setMaxValue(double maximum) override;

    double doubleLoValue() const { return m_drag == Drag::Low ? baseValue() : m_loValue; }
    double doubleHiValue() const { return m_drag == Drag::Low ? m_savedValue : baseValue(); }
    /// Not above the high value, then not below the minimum.
    void setDoubleLoValue(double value);
    /// Not below the low value, then not above the maximum.
    void setDoubleHiValue(double value);
    /// The active knob's value.
    double doubleValue() const override { return m_trackingLoKnob ? doubleLoValue() : doubleHiValue(); }
    void setDoubleValue(double value) override;

    bool trackingLoKnob() const { return m_trackingLoKnob; }
    void setTrackingLoKnob(bool trackingLoKnob);
    bool lockedSliders() const { return m_lockedSliders; }
    /// Locking moves the low knob to the high one.
    void setLockedSliders(bool locked);

    /// The user moves the active knob without the mouse; reported at once.
    void moveActiveKnob(double value);
    void stepActiveKnob(int steps) { moveActiveKnob(doubleValue() + steps * keyStep()); }

    /// The knob to the left of whose centre the point lies is taken: the low one, or else the high one. Of
    /// knobs drawn at one place the low one is taken only above the minimum, so that two at the minimum can
    /// be pulled apart.
    void startTracking(QPointF point, Flip flip) override;
    /// Neither knob passes the other.
    void continueTracking(QPointF point) override;
    /// The end of the drag is reported in any case.
    void stopTracking() override;
    /// Ends the drag where it is, without a report.
    void cancelTracking() { endDrag(); }

    /// The low knob's, the high knob's and the bar's picture. Knobs are drawn plainly unless both have one.
    QPixmap knobLeftImage() const { return m_knobLeftImage; }
    void setKnobLeftImage(const QPixmap& image);
    QPixmap knobRightImage() const { return m_knobRightImage; }
    void setKnobRightImage(const QPixmap& image);
    QPixmap barFillImage() const { return m_barFillImage; }
    void setBarFillImage(const QPixmap& image);
    /// The keyboard focus is shown around the active knob.
    void setFocused(bool focused) { m_focused = focused; }

    void draw(QPainter& painter, const QPalette& palette, Flip flip) override;
    /// Where on the surface the lower left corner of a knob's picture goes, by the last bar drawn.
    QPointF knobImageOrigin(const QRectF& knob, QSizeF imageSize) const;

    /// With "loValue" and "lockedSliders" besides. A decoded slider has the low knob active.
    QVariantMap encode() const override;
    void decode(const QVariantMap& archive) override;

protected:
    void drawBar(QPainter& painter, const QRectF& bar, Flip flip) override;
    void drawKnob(QPainter& painter, const QRectF& knob) override;

private:
    enum class Drag { None, Low, High };

    void storeBoth(double loValue, double hiValue);
    void moveIntoRange(double minimum, double maximum);
    /// Gives each value back its place; tells which knob was dragged.
    Drag endDrag();
    void report(Drag knob);
    void redraw(const QRectF& part);
    void drawKnobImage(QPainter& painter, const QRectF& target) const;

    SMDoubleSliderCellView* m_view = nullptr;
    double m_loValue = 0;
    /// The high value while the low knob is dragged; the base slider holds the low one then.
    double m_savedValue = 0;
    Drag m_drag = Drag::None;
    bool m_trackingLoKnob = true;
    bool m_lockedSliders = false;
    bool m_focused = false;

    QPixmap m_knobLeftImage;
    QPixmap m_knobRightImage;
    QPixmap m_currentKnobImage;
    QPixmap m_barFillImage;
    QRectF m_barRect;
    Flip m_barFlip = Flip::Flipped;
    bool m_drawingActiveKnob = false;
};

} // namespace marvo
