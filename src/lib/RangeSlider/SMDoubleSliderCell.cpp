// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "lib/RangeSlider/SMDoubleSliderCell.h"

#include <algorithm>
#include <cmath>

namespace marvo {

namespace {

double numberOrZero(double value) { return std::isnan(value) ? 0.0 : value; }

} // namespace

// ---- values

void SMDoubleSliderCell::setMinValue(double minimum)
{
    if (std::isfinite(minimum))
        moveIntoRange(minimum, std::max(minimum, maxValue()));
}

void SMDoubleSliderCell::setMaxValue(double maximum)
{
    if (std::isfinite(maximum))
        moveIntoRange(std::min(minValue(), maximum), maximum);
}

void SMDoubleSliderCell::moveIntoRange(double minimum, double maximum)
{
    const double loValue = std::clamp(doubleLoValue(), minimum, maximum);
    const double hiValue = std::clamp(doubleHiValue(), minimum, maximum);
    setRange(minimum, maximum);
    storeBoth(loValue, hiValue);
}

void SMDoubleSliderCell::setDoubleLoValue(double value)
{
    value = numberOrZero(value);
    if (m_lockedSliders) {
        value = std::clamp(value, minValue(), maxValue());
        storeBoth(value, value);
        return;
    }
    if (value > doubleHiValue())
        value = doubleHiValue();
    if (minValue() > value)
        value = minValue();
    storeBoth(value, doubleHiValue());
}

void SMDoubleSliderCell::setDoubleHiValue(double value)
{
    value = numberOrZero(value);
    if (m_lockedSliders) {
        setDoubleLoValue(value);
        return;
    }
    if (doubleLoValue() > value)
        value = doubleLoValue();
    if (value > maxValue())
        value = maxValue();
    storeBoth(doubleLoValue(), value);
}

void SMDoubleSliderCell::setDoubleValue(double value)
{
    if (m_trackingLoKnob)
        setDoubleLoValue(value);
    else
        setDoubleHiValue(value);
}

void SMDoubleSliderCell::storeBoth(double loValue, double hiValue)
{
    const bool changed = loValue != doubleLoValue() || hiValue != doubleHiValue();
    if (m_drag == Drag::Low) {
        setBaseValue(loValue);
        m_savedValue = hiValue;
    } else {
        m_loValue = loValue;
        setBaseValue(hiValue);
    }
    redraw(frame());
    if (changed && m_view)
        m_view->cellValuesChanged();
}

void SMDoubleSliderCell::setTrackingLoKnob(bool trackingLoKnob)
{
    if (trackingLoKnob == m_trackingLoKnob)
        return;
    m_trackingLoKnob = trackingLoKnob;
    redraw(frame());
}

void SMDoubleSliderCell::setLockedSliders(bool locked)
{
    if (locked == m_lockedSliders)
        return;
    m_lockedSliders = locked;
    storeBoth(locked ? doubleHiValue() : doubleLoValue(), doubleHiValue());
}

// ---- tracking

void SMDoubleSliderCell::moveActiveKnob(double value)
{
    const bool low = m_trackingLoKnob;
    setDoubleValue(value);
    report(low ? Drag::Low : Drag::High);
}

void SMDoubleSliderCell::startTracking(QPointF point, Flip flip)
{
    endDrag();
    const QRectF loKnob = knobRect(doubleLoValue(), flip);
    bool takeLow = false;
    if (orientation() == Qt::Horizontal)
        takeLow = loKnob.center().x() > point.x();
    else if (flip == Flip::Flipped)
        takeLow = point.y() > loKnob.y();
    else
        takeLow = loKnob.y() + loKnob.height() > point.y();
    if (takeLow && loKnob == knobRect(doubleHiValue(), flip))
        takeLow = doubleLoValue() > minValue();
    setTrackingLoKnob(takeLow);

    const double loValue = doubleLoValue();
    m_savedValue = doubleHiValue();
    m_drag = takeLow ? Drag::Low : Drag::High;
    if (takeLow) {
        setBaseValue(loValue);
        redraw(loKnob);
    }
    SliderCell::startTracking(point, flip);
}

void SMDoubleSliderCell::continueTracking(QPointF point)
{
    if (m_drag == Drag::None)
        return;
    const double value = trackedValueAt(point);
    if (m_lockedSliders)
        storeBoth(value, value);
    else if (m_drag == Drag::Low)
        storeBoth(std::min(value, doubleHiValue()), doubleHiValue());
    else
        storeBoth(doubleLoValue(), std::max(value, doubleLoValue()));
    if (isContinuous())
        report(m_drag);
}

void SMDoubleSliderCell::stopTracking()
{
    const Drag ended = endDrag();
    if (ended != Drag::None)
        report(ended);
}

SMDoubleSliderCell::Drag SMDoubleSliderCell::endDrag()
{
    SliderCell::stopTracking();
    const Drag ended = m_drag;
    if (ended == Drag::Low) {
        const double loValue = baseValue();
        m_drag = Drag::None;
        m_loValue = loValue;
        setBaseValue(m_savedValue);
    }
    m_drag = Drag::None;
    if (ended != Drag::None)
        redraw(frame());
    return ended;
}

void SMDoubleSliderCell::report(Drag knob)
{
    if (!m_view)
        return;
    // A slot for one value may set the other.
    const double loValue = doubleLoValue();
    const double hiValue = doubleHiValue();
    if (knob == Drag::Low || m_lockedSliders)
        m_view->updateBoundControllerLoValue(loValue);
    if (knob == Drag::High || m_lockedSliders)
        m_view->updateBoundControllerHiValue(hiValue);
}

void SMDoubleSliderCell::redraw(const QRectF& part)
{
    if (m_view)
        m_view->redraw(part);
}

// ---- archive

QVariantMap SMDoubleSliderCell::encode() const
{
    QVariantMap archive = SliderCell::encode();
    archive.insert(QStringLiteral("value"), doubleHiValue());
    archive.insert(QStringLiteral("loValue"), doubleLoValue());
    archive.insert(QStringLiteral("lockedSliders"), m_lockedSliders);
    return archive;
}

void SMDoubleSliderCell::decode(const QVariantMap& archive)
{
    endDrag();
    SliderCell::decode(archive);
    bool isNumber = false;
    const double stored = archive.value(QStringLiteral("loValue")).toDouble(&isNumber);
    const double loValue = std::clamp(isNumber ? numberOrZero(stored) : m_loValue, minValue(), maxValue());
    m_lockedSliders = archive.value(QStringLiteral("lockedSliders"), m_lockedSliders).toBool();
    m_trackingLoKnob = true;
    storeBoth(m_lockedSliders ? baseValue() : std::min(loValue, baseValue()), baseValue());
}

} // namespace marvo
