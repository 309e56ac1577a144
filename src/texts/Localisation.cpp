// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "texts/Localisation.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <memory>

namespace marvo {

QString supportLanguage() { return QStringLiteral(SUPPORT_LANGUAGE); }

InterfaceLanguage builtLanguage()
{
    const QString code = supportLanguage();
    if (code == QLatin1StringView("ko"))
        return InterfaceLanguage::Korean;
    if (code == QLatin1StringView("auto") && QLocale().language() == QLocale::Korean)
        return InterfaceLanguage::Korean;
    return InterfaceLanguage::English;
}

bool installLanguage(InterfaceLanguage language)
{
    static QTranslator* installed[2] = {};
    const QString code = language == InterfaceLanguage::Korean ? QStringLiteral("ko") : QStringLiteral("en");
    auto table = std::make_unique<QTranslator>(QCoreApplication::instance());
    if (!table->load(QStringLiteral(":/strings/marvo_%1.qm").arg(code)))
        return false;
    // Without these Qt's dialogs are English; the program starts all the same.
    auto qtTable = std::make_unique<QTranslator>(QCoreApplication::instance());
    static_cast<void>(qtTable->load(QStringLiteral("qtbase_%1").arg(code),
                                    QLibraryInfo::path(QLibraryInfo::TranslationsPath)));
    for (QTranslator* earlier : installed)
        delete earlier;
    installed[0] = table.release();
    installed[1] = qtTable.release();
    for (QTranslator* translator : installed)
        QCoreApplication::installTranslator(translator);
    return true;
}

QString localised(const char* key) { return qtTrId(key); }

QString localised(const QString& key) { return qtTrId(key.toUtf8().constData()); }

} // namespace marvo
