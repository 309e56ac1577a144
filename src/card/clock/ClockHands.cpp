// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/clock/ClockHands.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace marvo {

namespace {

constexpr double fullTurn = 360;

int stepSeconds(ClockHand hand)
{
    switch (hand) {
    case ClockHand::Hour:
        return 3600;
    case ClockHand::Minute:
        return 60;
    case ClockHand::Second:
        break;
    }
    return 1;
}

int stepsOfTurn(ClockHand hand) { return hand == ClockHand::Hour ? 12 : 60; }

QPointF pointAt(double angle, double radius)
{
    const double radians = angle * std::numbers::pi / 180;
    return {radius * std::sin(radians), -radius * std::cos(radians)};
}

double distanceToHand(QPointF point, ClockHand hand, QTime time)
{
    const QPointF tip = pointAt(clockHandAngle(hand, time), clockHandLength(hand));
    const double along = QPointF::dotProduct(point, tip) / QPointF::dotProduct(tip, tip);
    const QPointF away = point - tip * std::clamp(along, 0.0, 1.0);
    return std::hypot(away.x(), away.y());
}

} // namespace

double clockHandAngle(ClockHand hand, QTime time)
{
    const int seconds = QTime(0, 0).secsTo(time);
    const int turn = stepSeconds(hand) * stepsOfTurn(hand);
    return fullTurn * (seconds % turn) / turn;
}

double clockHandLength(ClockHand hand)
{
    switch (hand) {
    case ClockHand::Hour:
        return 0.46;
    case ClockHand::Minute:
        return 0.68;
    case ClockHand::Second:
        break;
    }
    return 0.8;
}

double clockAngleAt(QPointF point)
{
    const double degrees = std::atan2(point.x(), -point.y()) * 180 / std::numbers::pi;
    return degrees < 0 ? degrees + fullTurn : degrees;
}

std::optional<ClockHand> clockHandAt(QPointF point, QTime time, double reach)
{
    std::optional<ClockHand> nearest;
    double least = reach;
    for (const ClockHand hand : allClockHands) {
        const double distance = distanceToHand(point, hand, time);
        if (distance <= reach && (!nearest || distance < least - reach / 4)) {
            nearest = hand;
            least = distance;
        }
    }
    return nearest;
}

QTime withClockHandAt(ClockHand hand, double angle, QTime time)
{
    const double turned = std::remainder(angle - clockHandAngle(hand, time), fullTurn);
    return withClockHandStepped(hand, static_cast<int>(std::lround(turned * stepsOfTurn(hand) / fullTurn)),
                                time);
}

QTime withClockHandStepped(ClockHand hand, int steps, QTime time)
{
    return time.addSecs(steps * stepSeconds(hand));
}

} // namespace marvo
