// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/LanguagePreference.h"

#include "texts/Localisation.h"

#include <QLoggingCategory>
#include <QSettings>
#include <QStringList>

namespace marvo {

namespace {

Q_LOGGING_CATEGORY(lcLanguage, "marvo.viewer")

} // namespace

void storeLanguagePreference(QSettings& preferences)
{
    const QString built = supportLanguage();
    if (built == QLatin1StringView("auto"))
        return;
    const QString key = QStringLiteral("AppleLanguages");
    for (const QString& language : preferences.value(key).toStringList())
        qCInfo(lcLanguage, "SUPPORT_LANGUAGE=%s", qPrintable(language));
    preferences.setValue(key, QStringList{built});
}

} // namespace marvo
