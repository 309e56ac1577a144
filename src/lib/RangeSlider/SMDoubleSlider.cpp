// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "lib/RangeSlider/SMDoubleSlider.h"

#include "controls/ImageNamed.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QMouseEvent>
#include <QPainter>

namespace marvo {

namespace {

/// At this length the knobs' travel has 20 times the ticks' distance.
constexpr int naturalLength = 496;
constexpr int leastLength = 120;
constexpr int thickness = 28;
constexpr int pageSteps = 10;

std::unique_ptr<SMDoubleSliderCell> asDoubleSliderCell(std::unique_ptr<SliderCell> cell)
{
    if (auto* doubleCell = dynamic_cast<SMDoubleSliderCell*>(cell.get())) {
        static_cast<void>(cell.release());
        return std::unique_ptr<SMDoubleSliderCell>(doubleCell);
    }
    return std::make_unique<SMDoubleSliderCell>();
}

bool isInteger(const QMetaType& type)
{
    switch (type.id()) {
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return true;
    default:
        return false;
    }
}

std::size_t indexOf(SMDoubleSlider::Binding binding) { return static_cast<std::size_t>(binding); }

} // namespace

SMDoubleSlider::SMDoubleSlider(QWidget* parent, std::unique_ptr<SliderCell> cell)
    : QWidget(parent), m_cell(asDoubleSliderCell(std::move(cell)))
{
    installAccessibleValues();
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    const qreal ratio = qGuiApp->devicePixelRatio(); // of the sharpest screen
    m_cell->setKnobLeftImage(imageNamed(QStringLiteral("eco_knob_left.png"), ratio));
    m_cell->setKnobRightImage(imageNamed(QStringLiteral("eco_knob_right.png"), ratio));
    m_cell->setBarFillImage(imageNamed(QStringLiteral("eco_barFill.png"), ratio));
    m_cell->setView(this);
}

SMDoubleSlider::~SMDoubleSlider() { m_cell->setView(nullptr); }

void SMDoubleSlider::setOrientation(Qt::Orientation orientation)
{
    m_cell->setOrientation(orientation);
    const bool horizontal = orientation == Qt::Horizontal;
    setSizePolicy(horizontal ? QSizePolicy::Maximum : QSizePolicy::Fixed,
                  horizontal ? QSizePolicy::Fixed : QSizePolicy::Maximum);
    updateGeometry();
    update();
}

void SMDoubleSlider::setObjectLoValue(const QVariant& object)
{
    const bool none = slidernumber::isNoObject(object);
    setEnabled(!none);
    m_cell->setObjectLoValue(none ? QVariant(0.0) : object);
}

void SMDoubleSlider::setObjectHiValue(const QVariant& object)
{
    const bool none = slidernumber::isNoObject(object);
    setEnabled(!none);
    m_cell->setObjectHiValue(none ? QVariant(0.0) : object);
}

// ---- bindings

bool SMDoubleSlider::bind(Binding binding, QObject* object, const QByteArray& property)
{
    const int index = object ? object->metaObject()->indexOfProperty(property.constData()) : -1;
    if (index < 0)
        return false;
    unbind(binding);
    m_bound.at(indexOf(binding)) = {object, property};
    const QMetaProperty metaProperty = object->metaObject()->property(index);
    if (metaProperty.hasNotifySignal()) {
        const char* const slot =
            binding == Binding::ObjectLoValue ? "takeBoundLoValue()" : "takeBoundHiValue()";
        connect(object, metaProperty.notifySignal(), this,
                staticMetaObject.method(staticMetaObject.indexOfSlot(slot)));
    }
    takeBoundValue(binding);
    return true;
}

void SMDoubleSlider::unbind(Binding binding)
{
    BoundProperty& bound = m_bound.at(indexOf(binding));
    if (bound.object) {
        const char* const slot =
            binding == Binding::ObjectLoValue ? "takeBoundLoValue()" : "takeBoundHiValue()";
        disconnect(bound.object, QMetaMethod(), this,
                   staticMetaObject.method(staticMetaObject.indexOfSlot(slot)));
    }
    bound = {};
}

bool SMDoubleSlider::isBound(Binding binding) const { return !m_bound.at(indexOf(binding)).object.isNull(); }

void SMDoubleSlider::updateBoundControllerLoValue(double value)
{
    updateBoundController(Binding::ObjectLoValue, value);
}

void SMDoubleSlider::updateBoundControllerHiValue(double value)
{
    updateBoundController(Binding::ObjectHiValue, value);
}

void SMDoubleSlider::updateBoundController(Binding binding, double value)
{
    const BoundProperty bound = m_bound.at(indexOf(binding));
    if (!bound.object)
        return;
    const QMetaObject* const meta = bound.object->metaObject();
    const QMetaProperty property = meta->property(meta->indexOfProperty(bound.name.constData()));
    if (isInteger(property.metaType()))
        property.write(bound.object, slidernumber::truncatedInteger(value));
    else
        property.write(bound.object, value);
    // An object that kept another value, or had this one, may not have emitted a signal.
    takeBoundValue(binding);
}

void SMDoubleSlider::takeBoundValue(Binding binding)
{
    const BoundProperty& bound = m_bound.at(indexOf(binding));
    if (!bound.object)
        return;
    const QVariant value = bound.object->property(bound.name.constData());
    if (binding == Binding::ObjectLoValue)
        setObjectLoValue(value);
    else
        setObjectHiValue(value);
}

void SMDoubleSlider::takeBoundLoValue() { takeBoundValue(Binding::ObjectLoValue); }

void SMDoubleSlider::takeBoundHiValue() { takeBoundValue(Binding::ObjectHiValue); }

// ---- the widget

AccessibleValue SMDoubleSlider::accessibleValue() const
{
    return {doubleValue(), minValue(), maxValue(), altIncrementValue(),
            QStringLiteral("%1 \u2013 %2").arg(stringLoValue(), stringHiValue())};
}

void SMDoubleSlider::requestValue(double value)
{
    if (isEnabled())
        m_cell->moveActiveKnob(value);
}

QSize SMDoubleSlider::sizeHint() const
{
    const QSize size(naturalLength, thickness);
    return orientation() == Qt::Horizontal ? size : size.transposed();
}

QSize SMDoubleSlider::minimumSizeHint() const
{
    const QSize size(leastLength, thickness);
    return orientation() == Qt::Horizontal ? size : size.transposed();
}

bool SMDoubleSlider::event(QEvent* event)
{
    if (event->type() == QEvent::ParentChange && !parentWidget()) {
        unbind(Binding::ObjectLoValue);
        unbind(Binding::ObjectHiValue);
    }
    return QWidget::event(event);
}

void SMDoubleSlider::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange) {
        m_cell->setEnabled(isEnabled());
        // The release of the pressed button will not arrive.
        if (!isEnabled())
            m_cell->cancelTracking();
    }
    QWidget::changeEvent(event);
}

void SMDoubleSlider::hideEvent(QHideEvent* event)
{
    m_cell->cancelTracking();
    QWidget::hideEvent(event);
}

void SMDoubleSlider::focusInEvent(QFocusEvent* event)
{
    if (event->reason() == Qt::TabFocusReason)
        setTrackingLoKnob(true);
    else if (event->reason() == Qt::BacktabFocusReason)
        setTrackingLoKnob(false);
    m_cell->setFocused(true);
    update();
}

void SMDoubleSlider::focusOutEvent(QFocusEvent*)
{
    m_cell->setFocused(false);
    update();
}

bool SMDoubleSlider::focusNextPrevChild(bool next)
{
    if (m_cell->isTracking())
        return true;
    const bool staysHere = next == trackingLoKnob();
    setTrackingLoKnob(!next || !staysHere);
    return staysHere || QWidget::focusNextPrevChild(next);
}

void SMDoubleSlider::keyPressEvent(QKeyEvent* event)
{
    if (m_cell->isTracking() || (event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) != 0) {
        QWidget::keyPressEvent(event);
        return;
    }
    switch (event->key()) {
    case Qt::Key_Right:
    case Qt::Key_Up:
        m_cell->stepActiveKnob(1);
        break;
    case Qt::Key_Left:
    case Qt::Key_Down:
        m_cell->stepActiveKnob(-1);
        break;
    case Qt::Key_PageUp:
        m_cell->stepActiveKnob(pageSteps);
        break;
    case Qt::Key_PageDown:
        m_cell->stepActiveKnob(-pageSteps);
        break;
    case Qt::Key_Home:
        m_cell->moveActiveKnob(minValue());
        break;
    case Qt::Key_End:
        m_cell->moveActiveKnob(maxValue());
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void SMDoubleSlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_cell->startTracking(event->position(), Flip::Flipped);
    else
        event->ignore();
}

void SMDoubleSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons().testFlag(Qt::LeftButton))
        m_cell->continueTracking(event->position());
}

void SMDoubleSlider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_cell->stopTracking();
    else
        event->ignore();
}

void SMDoubleSlider::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    m_cell->draw(painter, palette(), Flip::Flipped);
}

void SMDoubleSlider::resizeEvent(QResizeEvent*) { m_cell->setFrame(rect()); }

void SMDoubleSlider::redraw(const QRectF&)
{
    // A knob's picture may be larger than the knob, and the knobs overlap.
    update();
}

void SMDoubleSlider::cellValuesChanged()
{
    announceValue(*this, doubleValue());
    Q_EMIT valuesChanged();
}

} // namespace marvo
