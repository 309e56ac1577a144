// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/clock/ClockFace.h"

#include "card/clock/DateTexts.h"
#include "texts/Localisation.h"

#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace marvo {

namespace {

constexpr double reachPixels = 9;      ///< distance from a hand at which a click takes it
constexpr double deadMiddlePixels = 8; ///< around the middle, where an angle is not usable
constexpr int secondsOfDay = 24 * 3600;
constexpr int wheelNotch = 120;
constexpr int halfOpacity = 215;

double handWidth(ClockHand hand)
{
    switch (hand) {
    case ClockHand::Hour:
        return 6;
    case ClockHand::Minute:
        return 4;
    case ClockHand::Second:
        break;
    }
    return 2;
}

} // namespace

ClockFace::ClockFace(QWidget* parent) : QWidget(parent)
{
    installAccessibleValues();
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
}

void ClockFace::setTime(QTime time)
{
    time = QTime(time.hour(), time.minute(), time.second());
    if (!time.isValid() || time == m_time)
        return;
    m_time = time;
    update();
    announceValue(*this, accessibleValue().current);
}

void ClockFace::choose(QTime time)
{
    if (time == m_time)
        return;
    setTime(time);
    Q_EMIT timeChosen(m_time);
}

void ClockFace::select(ClockHand hand)
{
    m_selected = hand;
    update();
}

AccessibleValue ClockFace::accessibleValue() const
{
    return {.current = double(QTime(0, 0).secsTo(m_time)),
            .minimum = 0,
            .maximum = secondsOfDay - 1,
            .step = 60,
            .text = locale().toString(m_time, timeFormat(locale()))};
}

void ClockFace::requestValue(double value)
{
    if (isEnabled() && value >= 0 && value < secondsOfDay)
        choose(QTime(0, 0).addSecs(static_cast<int>(value)));
}

double ClockFace::radius() const { return std::min(width(), height()) / 2.0 - 4; }

QPointF ClockFace::onFace(QPointF position) const { return (position - QRectF(rect()).center()) / radius(); }

QPointF ClockFace::handTip(ClockHand hand) const
{
    const double radians = clockHandAngle(hand, m_time) * std::numbers::pi / 180;
    return QRectF(rect()).center() +
           QPointF(std::sin(radians), -std::cos(radians)) * clockHandLength(hand) * radius();
}

QRectF ClockFace::dayHalfRect() const
{
    QRectF half(0, 0, radius() * 0.42, radius() * 0.22);
    half.moveCenter(QRectF(rect()).center() + QPointF(0, radius() * 0.36));
    return half;
}

std::optional<ClockHand> ClockFace::handUnder(QPointF position) const
{
    return clockHandAt(onFace(position), m_time, reachPixels / radius());
}

bool ClockFace::event(QEvent* event)
{
    // The arrow keys turn the hands while the face has the focus.
    if (event->type() == QEvent::ShortcutOverride) {
        switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            event->accept();
            return true;
        default:
            break;
        }
    }
    return QWidget::event(event);
}

void ClockFace::keyPressEvent(QKeyEvent* event)
{
    const int index = static_cast<int>(m_selected);
    const auto turn = [&](int steps) { choose(withClockHandStepped(m_selected, steps, m_time)); };
    const int page = m_selected == ClockHand::Hour ? 12 : 10;
    switch (event->key()) {
    case Qt::Key_Left:
        select(static_cast<ClockHand>(std::max(index - 1, 0)));
        break;
    case Qt::Key_Right:
        select(static_cast<ClockHand>(std::min(index + 1, 2)));
        break;
    case Qt::Key_Up:
        turn(1);
        break;
    case Qt::Key_Down:
        turn(-1);
        break;
    case Qt::Key_PageUp:
        turn(page);
        break;
    case Qt::Key_PageDown:
        turn(-page);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void ClockFace::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_dragged = handUnder(event->position());
    if (m_dragged)
        select(*m_dragged);
    m_halfPressed = dayHalfRect().contains(event->position());
}

void ClockFace::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_dragged) {
        const auto hovered = handUnder(event->position());
        const bool onHalf = dayHalfRect().contains(event->position());
        setCursor(hovered ? Qt::OpenHandCursor : onHalf ? Qt::PointingHandCursor : Qt::ArrowCursor);
        if (hovered != m_hovered) {
            m_hovered = hovered;
            update();
        }
        return;
    }
    setCursor(Qt::ClosedHandCursor);
    const QPointF point = onFace(event->position());
    if (std::hypot(point.x(), point.y()) * radius() <= deadMiddlePixels)
        return;
    const QTime turned = withClockHandAt(*m_dragged, clockAngleAt(point), m_time);
    m_halfPressed = m_halfPressed && turned == m_time;
    choose(turned);
}

void ClockFace::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_dragged.reset();
    if (std::exchange(m_halfPressed, false) && dayHalfRect().contains(event->position()))
        choose(withClockHandStepped(ClockHand::Hour, 12, m_time));
    setCursor(handUnder(event->position()) ? Qt::OpenHandCursor : Qt::ArrowCursor);
    update();
}

void ClockFace::wheelEvent(QWheelEvent* event)
{
    // Only while the face has the focus: a page that scrolls past must not set a clock.
    if (!hasFocus()) {
        event->ignore();
        return;
    }
    m_wheel += event->angleDelta().y();
    const int steps = m_wheel / wheelNotch;
    m_wheel -= steps * wheelNotch;
    choose(withClockHandStepped(m_selected, steps, m_time));
}

void ClockFace::leaveEvent(QEvent* event)
{
    m_hovered.reset();
    update();
    QWidget::leaveEvent(event);
}

void ClockFace::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void ClockFace::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    update();
}

void ClockFace::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange) {
        m_dragged.reset();
        update();
    }
    QWidget::changeEvent(event);
}

void ClockFace::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(rect()).center());
    drawFace(painter);
    for (const ClockHand hand : allClockHands)
        drawHand(painter, hand);
    drawDayHalf(painter); // above the hands, to be legible
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::Text));
    painter.drawEllipse(QPointF(), 4.5, 4.5);
}

void ClockFace::drawFace(QPainter& painter) const
{
    const double r = radius();
    painter.setPen(QPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Midlight), 1.5));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawEllipse(QPointF(), r, r);

    const QColor quiet = palette().color(QPalette::PlaceholderText);
    for (int tick = 0; tick < 60; ++tick) {
        const bool hour = tick % 5 == 0;
        painter.setPen(QPen(quiet, hour ? 2 : 1));
        painter.drawLine(QPointF(0, -r * 0.95), QPointF(0, -r * (hour ? 0.89 : 0.92)));
        painter.rotate(6);
    }

    QFont font = painter.font();
    font.setPixelSize(static_cast<int>(r * 0.15));
    painter.setFont(font);
    painter.setPen(palette().color(QPalette::Text));
    for (int hour = 1; hour <= 12; ++hour) {
        const double radians = hour * std::numbers::pi / 6;
        QRectF place(0, 0, r * 0.3, r * 0.2);
        place.moveCenter(QPointF(std::sin(radians), -std::cos(radians)) * r * 0.77);
        painter.drawText(place, Qt::AlignCenter, locale().toString(hour));
    }
}

void ClockFace::drawDayHalf(QPainter& painter) const
{
    const QRectF half = dayHalfRect().translated(-QRectF(rect()).center());
    QColor ground = palette().color(QPalette::Button);
    ground.setAlpha(halfOpacity);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(half, 4, 4);
    QFont font = painter.font();
    font.setPixelSize(static_cast<int>(radius() * 0.13));
    painter.setFont(font);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(half, Qt::AlignCenter, m_time.hour() < 12 ? locale().amText() : locale().pmText());
}

void ClockFace::drawHand(QPainter& painter, ClockHand hand) const
{
    const bool chosen = m_dragged == hand || (!m_dragged && m_hovered == hand) ||
                        (hasFocus() && !m_dragged && !m_hovered && m_selected == hand);
    QColor color = palette().color(chosen ? QPalette::Highlight : QPalette::Text);
    if (hand == ClockHand::Second && !chosen)
        color = palette().color(QPalette::PlaceholderText);
    const double length = clockHandLength(hand) * radius();
    painter.save();
    painter.rotate(clockHandAngle(hand, m_time));
    painter.setPen(QPen(color, handWidth(hand) + (chosen ? 1.5 : 0), Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(0, radius() * 0.1), QPointF(0, -length));
    if (hand == ClockHand::Second) { // a thin hand needs a grip
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawEllipse(QPointF(0, -length), 4.0, 4.0);
    }
    painter.restore();
}

} // namespace marvo
