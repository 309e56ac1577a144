// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/clock/DateTexts.h"

#include <QRegularExpression>

namespace marvo {

QString fullDateText(QDate day, const QLocale& locale) { return locale.toString(day, QLocale::LongFormat); }

QString mediumDateText(QDate day, const QLocale& locale)
{
    // There is no such format of Qt's own: it is the long one without the weekday and what ties that to the
    // rest, a comma before or after it or a word such as the Danish "den".
    static const QRegularExpression weekday(QStringLiteral("[\\s,\u060C]*dddd[\\s,\u060C]*('[^']*'\\s*)?"));
    QString format = locale.dateFormat(QLocale::LongFormat);
    format.replace(weekday, QStringLiteral(" "));
    static const QRegularExpression beforeFirst(QStringLiteral("^[^dMy']+")); // such as the Thai "on the"
    format.remove(beforeFirst);
    format.replace(QStringLiteral("MMMM"), QStringLiteral("MMM"));
    return locale.toString(day, format.trimmed());
}

QString timeFormat(const QLocale& locale)
{
    static const QRegularExpression timeZone(QStringLiteral("[\\s(\\[]*t+[)\\]]*"));
    QString format = locale.timeFormat(QLocale::LongFormat);
    format.remove(timeZone);
    format = format.trimmed();
    return format.contains(QLatin1Char('s')) ? format : QStringLiteral("HH:mm:ss");
}

} // namespace marvo
