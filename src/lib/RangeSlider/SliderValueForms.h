// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "lib/RangeSlider/SliderNumber.h"

namespace marvo {

/// The further forms of a range slider's low value, high value and active value, for a class that has the
/// three as doubles: doubleLoValue, doubleHiValue and doubleValue with their setters. Integers are truncated
/// toward zero, texts are "%g"; see SliderNumber.h for how numbers are read.
template <class Slider>
class SliderValueForms
{
public:
    QVariant objectLoValue() const { return slider().doubleLoValue(); }
    QString stringLoValue() const { return slidernumber::toText(slider().doubleLoValue()); }
    int intLoValue() const { return slidernumber::truncatedInt(slider().doubleLoValue()); }
    qint64 integerLoValue() const { return slidernumber::truncatedInteger(slider().doubleLoValue()); }
    float floatLoValue() const { return static_cast<float>(slider().doubleLoValue()); }

    void setObjectLoValue(const QVariant& object)
    {
        slider().setDoubleLoValue(slidernumber::fromObject(object, "doubleLoValue"));
    }
    void setStringLoValue(const QString& text) { slider().setDoubleLoValue(slidernumber::fromText(text)); }
    void setIntLoValue(int value) { slider().setDoubleLoValue(value); }
    void setIntegerLoValue(qint64 value) { slider().setDoubleLoValue(static_cast<double>(value)); }
    void setFloatLoValue(float value) { slider().setDoubleLoValue(static_cast<double>(value)); }

    QVariant objectHiValue() const { return slider().doubleHiValue(); }
    QString stringHiValue() const { return slidernumber::toText(slider().doubleHiValue()); }
    int intHiValue() const { return slidernumber::truncatedInt(slider().doubleHiValue()); }
    qint64 integerHiValue() const { return slidernumber::truncatedInteger(slider().doubleHiValue()); }
    float floatHiValue() const { return static_cast<float>(slider().doubleHiValue()); }

    void setObjectHiValue(const QVariant& object)
    {
        slider().setDoubleHiValue(slidernumber::fromObject(object, "doubleHiValue"));
    }
    void setStringHiValue(const QString& text) { slider().setDoubleHiValue(slidernumber::fromText(text)); }
    void setIntHiValue(int value) { slider().setDoubleHiValue(value); }
    void setIntegerHiValue(qint64 value) { slider().setDoubleHiValue(static_cast<double>(value)); }
    void setFloatHiValue(float value) { slider().setDoubleHiValue(static_cast<double>(value)); }

    QVariant objectValue() const { return slider().doubleValue(); }
    QString stringValue() const { return slidernumber::toText(slider().doubleValue()); }
    int intValue() const { return slidernumber::truncatedInt(slider().doubleValue()); }
    qint64 integerValue() const { return slidernumber::truncatedInteger(slider().doubleValue()); }
    float floatValue() const { return static_cast<float>(slider().doubleValue()); }

    void setObjectValue(const QVariant& object)
    {
        slider().setDoubleValue(slidernumber::fromObject(object, "doubleValue"));
    }
    void setStringValue(const QString& text) { slider().setDoubleValue(slidernumber::fromText(text)); }
    void setIntValue(int value) { slider().setDoubleValue(value); }
    void setIntegerValue(qint64 value) { slider().setDoubleValue(static_cast<double>(value)); }
    void setFloatValue(float value) { slider().setDoubleValue(static_cast<double>(value)); }

protected:
    SliderValueForms() = default;
    ~SliderValueForms() = default;

private:
    const Slider& slider() const { return static_cast<const Slider&>(*this); }
    Slider& slider() { return static_cast<Slider&>(*this); }
};

} // namespace marvo
