// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/FractionSlider.h"

#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace marvo {

namespace {

constexpr int positions = 1'000'000; // enough to seek to single frames in hours of recording
constexpr int grooveHeight = 4;
constexpr int hoverGap = 5;

} // namespace

FractionSlider::FractionSlider(double maximum, double singleStep, double pageStep, Keys keys, QWidget* parent)
    : QSlider(Qt::Horizontal, parent), m_unit(positions / maximum), m_keys(keys)
{
    setRange(0, positions);
    setSingleStep(static_cast<int>(std::lround(singleStep * m_unit)));
    setPageStep(static_cast<int>(std::lround(pageStep * m_unit)));
    setFocusPolicy(Qt::TabFocus);
    setMinimumHeight(2 * knobRadius() + 6);
    installAccessibleValues();
    connect(this, &QSlider::valueChanged, this, [this] { announceValue(*this, fraction()); });
}

AccessibleValue FractionSlider::accessibleValue() const
{
    return {fraction(), 0, maximum() / m_unit, singleStep() / m_unit, {}};
}

void FractionSlider::requestValue(double value)
{
    if (!std::isnan(value))
        moveTo(static_cast<int>(std::lround(std::clamp(value * m_unit, 0.0, double(positions)))));
}

double FractionSlider::fraction() const { return value() / m_unit; }

void FractionSlider::setFraction(double fraction)
{
    if (isSliderDown() || std::isnan(fraction))
        return;
    setValue(static_cast<int>(std::lround(std::clamp(fraction * m_unit, 0.0, double(positions)))));
}

void FractionSlider::moveTo(int position)
{
    const int before = value();
    setValue(position);
    if (value() != before)
        Q_EMIT userMoved(fraction());
}

double FractionSlider::valueAt(int x) const
{
    const int travel = width() - 2 * knobRadius();
    return travel > 0 ? std::clamp(double(x - knobRadius()) / travel, 0.0, 1.0) * positions / m_unit : 0;
}

void FractionSlider::moveToPoint(int x)
{
    if (width() > 2 * knobRadius())
        requestValue(valueAt(x));
}

void FractionSlider::setHoverText(std::function<QString(double)> text)
{
    m_hoverText = std::move(text);
    setMouseTracking(m_hoverText != nullptr);
}

void FractionSlider::showHover(int x)
{
    const QString text = m_hoverText ? m_hoverText(valueAt(x)) : QString();
    if (text.isEmpty())
        return endHover();
    if (!m_hover) {
        m_hover = new QLabel(window());
        m_hover->setObjectName(QStringLiteral("sliderHover"));
        m_hover->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    m_hover->setText(text);
    m_hover->adjustSize();
    const QPoint above = mapTo(window(), QPoint(x, height() / 2 - knobRadius() - hoverGap));
    const int left =
        std::clamp(above.x() - m_hover->width() / 2, 0, std::max(0, window()->width() - m_hover->width()));
    m_hover->move(left, above.y() - m_hover->height());
    m_hover->raise();
    m_hover->show();
    m_hoverX = x;
    update();
}

void FractionSlider::endHover()
{
    if (m_hover)
        m_hover->hide();
    m_hoverX = -1;
    update();
}

int FractionSlider::knobRadius() const { return 7; }

bool FractionSlider::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down:
            if (m_keys == Keys::HomeEndPages)
                break;
            [[fallthrough]];
        case Qt::Key_Home:
        case Qt::Key_End:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            event->accept();
            return true;
        default:
            break;
        }
    }
    return QSlider::event(event);
}

void FractionSlider::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Down:
        return moveTo(value() - singleStep());
    case Qt::Key_Right:
    case Qt::Key_Up:
        return moveTo(value() + singleStep());
    case Qt::Key_PageDown:
        return moveTo(value() - pageStep());
    case Qt::Key_PageUp:
        return moveTo(value() + pageStep());
    case Qt::Key_Home:
        return moveTo(minimum());
    case Qt::Key_End:
        return moveTo(maximum());
    default:
        QSlider::keyPressEvent(event);
    }
}

void FractionSlider::wheelEvent(QWheelEvent* event)
{
    // A touch pad sends many small parts of a step.
    m_wheelDelta += event->angleDelta().y();
    const int steps = m_wheelDelta / QWheelEvent::DefaultDeltasPerStep;
    m_wheelDelta -= steps * QWheelEvent::DefaultDeltasPerStep;
    if (steps != 0)
        moveTo(value() + steps * singleStep());
    event->accept();
}

void FractionSlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    setSliderDown(true);
    moveToPoint(event->position().toPoint().x());
    event->accept();
}

void FractionSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (isSliderDown())
        moveToPoint(event->position().toPoint().x());
    showHover(event->position().toPoint().x());
    event->accept();
}

void FractionSlider::leaveEvent(QEvent* event)
{
    QSlider::leaveEvent(event);
    endHover();
}

void FractionSlider::hideEvent(QHideEvent* event)
{
    QSlider::hideEvent(event);
    setSliderDown(false); // the button release will not arrive
    endHover();
}

void FractionSlider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        setSliderDown(false);
    event->accept();
}

void FractionSlider::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPalette& colours = palette();
    const qreal radius = knobRadius();
    const qreal travel = width() - 2 * radius;
    const qreal middle = height() / 2.0;
    const qreal knob = radius + travel * value() / positions;

    painter.setPen(Qt::NoPen);
    painter.setBrush(colours.color(QPalette::Midlight));
    painter.drawRoundedRect(QRectF(radius, middle - grooveHeight / 2.0, travel, grooveHeight), 2, 2);
    const QColor done =
        isEnabled() ? colours.color(QPalette::Highlight) : colours.color(QPalette::Disabled, QPalette::Text);
    painter.setBrush(done);
    painter.drawRoundedRect(QRectF(radius, middle - grooveHeight / 2.0, knob - radius, grooveHeight), 2, 2);

    if (m_hoverX >= 0) {
        const qreal mark = std::clamp<qreal>(m_hoverX, radius, width() - radius);
        painter.setBrush(colours.color(QPalette::BrightText));
        painter.drawRect(QRectF(mark - 0.5, middle - grooveHeight, 1, 2 * grooveHeight));
    }

    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(colours.color(QPalette::BrightText), 1.5));
        painter.drawEllipse(QPointF(knob, middle), radius + 1, radius + 1);
        painter.setPen(Qt::NoPen);
    }
    painter.setBrush(isEnabled() ? colours.color(QPalette::BrightText) : done);
    const qreal shown = underMouse() || isSliderDown() ? radius - 0.5 : radius - 1.5;
    painter.drawEllipse(QPointF(knob, middle), shown, shown);
}

} // namespace marvo
