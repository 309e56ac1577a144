// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariant>

namespace marvo {

/// The forms in which a slider's value is read and set, beside double.
namespace slidernumber {

/// Toward zero; what the type cannot hold is its nearest value, no number is 0.
int truncatedInt(double value);
qint64 truncatedInteger(double value);

/// "%g": six significant digits at most, no needless ones (100, 12.5, 1e+06).
QString toText(double value);

/// The decimal number that the text begins with, else 0.
double fromText(const QString& text);

/// The number in an object: an object pointer gives its property of the given name ("doubleLoValue"), or else
/// of the first of the names "doubleValue", "floatValue", "intValue" and "stringValue" that it has; a number
/// or a truth value gives itself, a text what fromText reads in it, and anything else 0.
double fromObject(const QVariant& object, const char* propertyName);

/// True for what stands for no object or no single one: an invalid variant or a null pointer.
bool isNoObject(const QVariant& object);

} // namespace slidernumber

} // namespace marvo
