// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/MRVValidator.h"

#include "support/DecimalNumber.h"
#include "texts/Localisation.h"

#include <algorithm>
#include <limits>

namespace marvo {

std::optional<QString> MRVValidator::validateGsensorThreshold(const QString& text)
{
    if (isEmptyString(text))
        return std::nullopt;
    const std::optional<double> threshold = numberInText(text);
    if (!threshold)
        return localised("msg.input_value_invalid_format");
    if (*threshold < lowestThreshold || *threshold > highestThreshold)
        return localised("msg.gsensor_outofrange_fmt").arg(lowestThreshold).arg(highestThreshold);
    return std::nullopt;
}

std::optional<QString> MRVValidator::validateSDCardSizeRatio(int percentage)
{
    if (percentage < lowestCardShare)
        return localised("msg.sdcard_ratio_too_low");
    return std::nullopt;
}

bool isEmptyString(const std::optional<QString>& text) { return !text || text->isEmpty(); }

std::optional<double> numberInText(QStringView text)
{
    const QByteArray bytes = text.trimmed().toUtf8();
    return readDecimalNumber({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

std::int32_t storedThreshold(QStringView text)
{
    using Limits = std::numeric_limits<std::int32_t>;
    const double hundredths = numberInText(text).value_or(0.0) * 100.0;
    return static_cast<std::int32_t>(std::clamp<double>(hundredths, Limits::min(), Limits::max()));
}

} // namespace marvo
