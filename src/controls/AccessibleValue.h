// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QString>

class QWidget;

namespace marvo {

/// What a widget that shows one number tells assistive technology.
struct AccessibleValue
{
    double current = 0;
    double minimum = 0;
    double maximum = 1;
    double step = 0;
    QString text; ///< read out in place of the number; empty: the number is read out
};

/// A widget that shows one number and can say which. Such a widget derives from this class beside QWidget and
/// calls installAccessibleValues() in its constructor.
class AccessibleValueSource
{
public:
    virtual ~AccessibleValueSource() = default;

    virtual QAccessible::Role accessibleRole() const = 0;
    virtual AccessibleValue accessibleValue() const = 0;
    /// Assistive technology sets the value. Read-only widgets ignore it.
    virtual void requestValue(double) {}
};

/// From now on every AccessibleValueSource of the process is presented with its role and value.
void installAccessibleValues();

/// Tells assistive technology, where any listens, that the widget's value has changed.
void announceValue(QWidget& widget, double value);

} // namespace marvo
