// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "controls/AccessibleValue.h"
#include "lib/RangeSlider/SMDoubleSliderCell.h"

#include <array>
#include <memory>
#include <QPointer>
#include <QWidget>

namespace marvo {

/// A slider with two knobs that selects a range: see SMDoubleSliderCell for its rules. In its natural width
/// the ticks of an EcoSliderAxisView of the same width stand under its steps of a tenth.
///
/// Tab goes from the low knob to the high one and on, Shift-Tab the other way. The arrow keys move the active
/// knob by a step, the page keys by ten, Home and End as far as it goes.
class SMDoubleSlider : public QWidget,
                       public SliderValueForms<SMDoubleSlider>,
                       public AccessibleValueSource,
                       private SMDoubleSliderCellView
{
    Q_OBJECT
    Q_PROPERTY(QVariant objectLoValue READ objectLoValue WRITE setObjectLoValue NOTIFY valuesChanged)
    Q_PROPERTY(QVariant objectHiValue READ objectHiValue WRITE setObjectHiValue NOTIFY valuesChanged)
    // Set to nothing (an invalid variant), these are 0.
    Q_PROPERTY(double doubleLoValue READ doubleLoValue WRITE setDoubleLoValue RESET resetLoValue NOTIFY
                   valuesChanged)
    Q_PROPERTY(double doubleHiValue READ doubleHiValue WRITE setDoubleHiValue RESET resetHiValue NOTIFY
                   valuesChanged)
    Q_PROPERTY(double doubleValue READ doubleValue WRITE setDoubleValue)
public:
    /// The values that can be bound to a property of another object: "objectLoValue" and "objectHiValue".
    enum class Binding { ObjectLoValue = 0, ObjectHiValue = 1 };

    /// A cell of another kind than SMDoubleSliderCell, or none, is replaced by a new one.
    explicit SMDoubleSlider(QWidget* parent = nullptr, std::unique_ptr<SliderCell> cell = nullptr);
    ~SMDoubleSlider() override;

    SMDoubleSliderCell& cell() { return *m_cell; }
    const SMDoubleSliderCell& cell() const { return *m_cell; }

    double minValue() const { return m_cell->minValue(); }
    void setMinValue(double minimum) { m_cell->setMinValue(minimum); }
    double maxValue() const { return m_cell->maxValue(); }
    void setMaxValue(double maximum) { m_cell->setMaxValue(maximum); }
    bool isContinuous() const { return m_cell->isContinuous(); }
    void setContinuous(bool continuous) { m_cell->setContinuous(continuous); }
    double altIncrementValue() const { return m_cell->altIncrementValue(); }
    void setAltIncrementValue(double increment) { m_cell->setAltIncrementValue(increment); }
    Qt::Orientation orientation() const { return m_cell->orientation(); }
    void setOrientation(Qt::Orientation orientation);

    double doubleLoValue() const { return m_cell->doubleLoValue(); }
    void setDoubleLoValue(double value) { m_cell->setDoubleLoValue(value); }
    void resetLoValue() { setDoubleLoValue(0); }
    double doubleHiValue() const { return m_cell->doubleHiValue(); }
    void setDoubleHiValue(double value) { m_cell->setDoubleHiValue(value); }
    void resetHiValue() { setDoubleHiValue(0); }
    double doubleValue() const { return m_cell->doubleValue(); }
    void setDoubleValue(double value) { m_cell->setDoubleValue(value); }

    /// No object (an invalid variant or a null pointer) disables the control and sets the value to 0; any
    /// other enables it and sets the value to its number, see slidernumber::fromObject.
    void setObjectLoValue(const QVariant& object);
    void setObjectHiValue(const QVariant& object);

    bool trackingLoKnob() const { return m_cell->trackingLoKnob(); }
    void setTrackingLoKnob(bool trackingLoKnob) { m_cell->setTrackingLoKnob(trackingLoKnob); }
    bool lockedSliders() const { return m_cell->lockedSliders(); }
    void setLockedSliders(bool locked) { m_cell->setLockedSliders(locked); }

    QPixmap knobLeftImage() const { return m_cell->knobLeftImage(); }
    void setKnobLeftImage(const QPixmap& image) { m_cell->setKnobLeftImage(image); }
    QPixmap knobRightImage() const { return m_cell->knobRightImage(); }
    void setKnobRightImage(const QPixmap& image) { m_cell->setKnobRightImage(image); }
    QPixmap barFillImage() const { return m_cell->barFillImage(); }
    void setBarFillImage(const QPixmap& image) { m_cell->setBarFillImage(image); }

    /// Binds the value to an object's property: the user's changes are written to it, and it is read at once
    /// and at each notify signal. The object need not outlive the control. Replaces the value's binding.
    /// False, and nothing done, when the object has no such property.
    bool bind(Binding binding, QObject* object, const QByteArray& property);
    /// The value stays as it is. A control that loses its parent unbinds both of its values.
    void unbind(Binding binding);
    bool isBound(Binding binding) const;

    /// Writes a value to the bound property, truncated toward zero where that is an integer, and shows what
    /// the property holds then. Without binding, nothing.
    void updateBoundControllerLoValue(double value) override;
    void updateBoundControllerHiValue(double value) override;

    /// To assistive technology a slider: its value is the active knob's, its text tells both ("30 – 70").
    QAccessible::Role accessibleRole() const override { return QAccessible::Slider; }
    AccessibleValue accessibleValue() const override;
    void requestValue(double value) override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The low or the high value has changed, by the user or the program.
    void valuesChanged();

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private Q_SLOTS:
    void takeBoundLoValue();
    void takeBoundHiValue();

private:
    struct BoundProperty
    {
        QPointer<QObject> object;
        QByteArray name;
    };

    void redraw(const QRectF& part) override;
    void cellValuesChanged() override;
    void updateBoundController(Binding binding, double value);
    void takeBoundValue(Binding binding);

    std::unique_ptr<SMDoubleSliderCell> m_cell;
    std::array<BoundProperty, 2> m_bound;
};

} // namespace marvo
