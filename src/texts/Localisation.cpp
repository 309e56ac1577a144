// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "texts/Localisation.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

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
    static QTranslator* installed = nullptr;
    auto* table = new QTranslator(QCoreApplication::instance());
    const QString name = language == InterfaceLanguage::Korean ? QStringLiteral(":/strings/marvo_ko.qm")
                                                               : QStringLiteral(":/strings/marvo_en.qm");
    if (!table->load(name)) {
        delete table;
        return false;
    }
    delete installed;
    installed = table;
    QCoreApplication::installTranslator(table);
    return true;
}

QString localised(const char* key) { return qtTrId(key); }

QString localised(const QString& key) { return qtTrId(key.toUtf8().constData()); }

} // namespace marvo
