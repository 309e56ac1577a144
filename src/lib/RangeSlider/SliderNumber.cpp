// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "lib/RangeSlider/SliderNumber.h"

#include "support/DecimalNumber.h"

#include <array>
#include <charconv>
#include <cmath>
#include <initializer_list>
#include <limits>
#include <QMetaProperty>
#include <QObject>

namespace marvo::slidernumber {

namespace {

template <typename Integer>
Integer truncated(double value)
{
    using Limits = std::numeric_limits<Integer>;
    if (std::isnan(value))
        return 0;
    if (value <= static_cast<double>(Limits::min()))
        return Limits::min();
    // The greatest 64-bit integer is no double; the one above it is.
    if (value >= static_cast<double>(Limits::max()))
        return Limits::max();
    return static_cast<Integer>(value);
}

double fromPlainValue(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::QString:
        return fromText(value.toString());
    case QMetaType::QByteArray:
        return fromText(QString::fromUtf8(value.toByteArray()));
    case QMetaType::Bool:
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Float:
    case QMetaType::Double:
        return value.toDouble();
    default:
        return 0;
    }
}

} // namespace

int truncatedInt(double value) { return truncated<int>(value); }

qint64 truncatedInteger(double value) { return truncated<qint64>(value); }

QString toText(double value)
{
    // As printf in the C locale; the toolkit's own formatting rounds ties otherwise.
    std::array<char, 32> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, 6).ptr;
    return QString::fromLatin1(text.data(), end - text.data());
}

double fromText(const QString& text)
{
    const QByteArray bytes = text.trimmed().toUtf8();
    return readDecimalNumber({bytes.constData(), static_cast<std::size_t>(bytes.size())}).value_or(0.0);
}

double fromObject(const QVariant& object, const char* propertyName)
{
    const auto* const offering = object.value<QObject*>();
    if (!offering)
        return fromPlainValue(object);
    for (const char* name : {propertyName, "doubleValue", "floatValue", "intValue", "stringValue"}) {
        const QVariant value = offering->property(name);
        if (value.isValid())
            return fromPlainValue(value);
    }
    return 0;
}

bool isNoObject(const QVariant& object)
{
    if (!object.isValid() || object.typeId() == QMetaType::Nullptr)
        return true;
    return object.metaType().flags().testFlag(QMetaType::PointerToQObject) && !object.value<QObject*>();
}

} // namespace marvo::slidernumber
