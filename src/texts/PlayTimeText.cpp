// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "texts/PlayTimeText.h"

#include <algorithm>

namespace marvo {

QString playTimeText(std::int64_t timeMs)
{
    const auto seconds = std::max<std::int64_t>(0, timeMs) / 1000;
    const QLatin1Char zero('0');
    const auto minutePart = QString::number(seconds / 60 % 60);
    const auto secondPart = QStringLiteral("%1").arg(seconds % 60, 2, 10, zero);
    if (seconds < 3600)
        return QStringLiteral("%1:%2").arg(minutePart, secondPart);
    return QStringLiteral("%1:%2:%3").arg(seconds / 3600).arg(minutePart, 2, zero).arg(secondPart);
}

} // namespace marvo
