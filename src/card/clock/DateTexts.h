// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDate>
#include <QLocale>
#include <QString>

namespace marvo {

/// The day with weekday and month in full, as the locale writes it: "Sunday, May 26, 2013".
QString fullDateText(QDate day, const QLocale& locale);
/// The day without weekday and with a short month, as the locale writes it: "May 26, 2013".
QString mediumDateText(QDate day, const QLocale& locale);

/// The format in which the locale writes a time of day down to the second, without time zone: "h:mm:ss AP".
QString timeFormat(const QLocale& locale);

} // namespace marvo
