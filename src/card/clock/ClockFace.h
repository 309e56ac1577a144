// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "card/clock/ClockHands.h"
#include "controls/AccessibleValue.h"

#include <QRectF>
#include <QTime>
#include <QWidget>

namespace marvo {

/// A clock face that shows a time of day and lets the user choose one: by dragging a hand, or with the
/// keyboard (Left and Right choose the hand, Up and Down turn it, the page keys turn it by ten or, the hour
/// hand, to the day's other half). The face shows AM or PM; a click changes it.
class ClockFace : public QWidget, public AccessibleValueSource
{
    Q_OBJECT
public:
    explicit ClockFace(QWidget* parent = nullptr);

    QTime time() const { return m_time; }
    /// Shows a time, to the second, without a signal.
    void setTime(QTime time);
    /// The hand that the keyboard turns.
    ClockHand selectedHand() const { return m_selected; }

    /// The positions of a hand's tip and of the AM/PM text in the widget.
    QPointF handTip(ClockHand hand) const;
    QRectF dayHalfRect() const;

    QSize sizeHint() const override { return {230, 230}; }
    QSize minimumSizeHint() const override { return {160, 160}; }

    QAccessible::Role accessibleRole() const override { return QAccessible::Clock; }
    AccessibleValue accessibleValue() const override;
    /// Seconds since midnight.
    void requestValue(double value) override;

Q_SIGNALS:
    /// The user chose another time, which is shown already.
    void timeChosen(QTime time);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void choose(QTime time);
    void select(ClockHand hand);
    double radius() const;
    QPointF onFace(QPointF position) const;
    std::optional<ClockHand> handUnder(QPointF position) const;
    void drawFace(QPainter& painter) const;
    void drawHand(QPainter& painter, ClockHand hand) const;
    void drawDayHalf(QPainter& painter) const;

    QTime m_time{0, 0};
    ClockHand m_selected = ClockHand::Hour;
    std::optional<ClockHand> m_dragged;
    std::optional<ClockHand> m_hovered;
    bool m_halfPressed = false; ///< and no drag of the hand below has begun
    int m_wheel = 0;            ///< eighths of a degree of an incomplete step
};

} // namespace marvo
