// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/tabs/ThresholdFormat.h"

#include "settings/MRVValidator.h"

namespace marvo {

QString thresholdText(std::int32_t hundredths) { return QString::number(hundredths / 100.0, 'f', 2); }

QValidator::State ThresholdFormat::validate(QString& text, int& /*cursor*/) const
{
    const auto isDigit = [&](int at) { return text.at(at) >= u'0' && text.at(at) <= u'9'; };
    const bool hasForm = text.size() == 4 && isDigit(0) && text.at(1) == u'.' && isDigit(2) && isDigit(3);
    return hasForm ? Acceptable : Intermediate;
}

void ThresholdFormat::fixup(QString& text) const
{
    const std::optional<double> number = numberInText(text);
    if (!number)
        return;
    const QString formatted = QString::number(*number, 'f', 2);
    // More decimals stay as typed; the stored value is truncated, not rounded.
    if (numberInText(formatted) == number)
        text = formatted;
}

} // namespace marvo
