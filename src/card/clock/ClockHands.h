// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QTime>

#include <array>
#include <optional>

namespace marvo {

enum class ClockHand { Hour, Minute, Second };

inline constexpr std::array allClockHands{ClockHand::Hour, ClockHand::Minute, ClockHand::Second};

/// The positions of the hands of a clock face, and the effect of turning one. Angles are degrees clockwise
/// from twelve; points are relative to the face's middle, y downwards, in units of its radius.
double clockHandAngle(ClockHand hand, QTime time);
double clockHandLength(ClockHand hand);
double clockAngleAt(QPointF point);

/// The hand that lies under a point, within reach of it; none beside all of them. Where hands overlap, the
/// shorter one is taken.
std::optional<ClockHand> clockHandAt(QPointF point, QTime time, double reach);

/// The time after a hand has been turned to an angle by the shorter way round. As on a clock, the hands that
/// go slower are taken along and those that go faster stay: over twelve the day's other half begins, and from
/// midnight it goes on at the end of the same day.
QTime withClockHandAt(ClockHand hand, double angle, QTime time);

/// The time after so many steps of a hand: hours, minutes or seconds.
QTime withClockHandStepped(ClockHand hand, int steps, QTime time);

} // namespace marvo
