// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "texts/Localisation.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QSettings>
#include <QTranslator>

#include <memory>
#include <optional>

namespace marvo {

namespace {

const auto choiceKey = QStringLiteral("interfaceLanguage");
constexpr const char* desktopChoice = "desktop";

std::optional<InterfaceLanguage> languageOfThisStart;

InterfaceLanguage desktopLanguage()
{
    const QString code = QLocale::system().name().section(QLatin1Char('_'), 0, 0);
    return InterfaceLanguage::ofCode(code.toStdString()).value_or(InterfaceLanguage::English);
}

/// The user's choice, or that of this start.
std::optional<InterfaceLanguage> chosenLanguage()
{
    if (languageOfThisStart)
        return languageOfThisStart;
    const QString choice = languageChoice();
    if (choice == QLatin1StringView(desktopChoice))
        return desktopLanguage();
    return InterfaceLanguage::ofCode(choice.toStdString());
}

} // namespace

QString supportLanguage() { return QStringLiteral(SUPPORT_LANGUAGE); }

QString languageChoice() { return QSettings().value(choiceKey).toString(); }

void setLanguageChoice(const QString& choice)
{
    QSettings preferences;
    if (choice.isEmpty())
        preferences.remove(choiceKey);
    else
        preferences.setValue(choiceKey, choice);
}

void useLanguage(InterfaceLanguage language) { languageOfThisStart = language; }

InterfaceLanguage interfaceLanguage()
{
    if (const auto chosen = chosenLanguage())
        return *chosen;
    return InterfaceLanguage::ofCode(supportLanguage().toStdString()).value_or(desktopLanguage());
}

QString mapPageName()
{
    const auto built = InterfaceLanguage::ofCode(supportLanguage().toStdString());
    const InterfaceLanguage language = chosenLanguage().value_or(built.value_or(InterfaceLanguage::English));
    return QString::fromLatin1(language.row().mapPage);
}

bool installLanguage(InterfaceLanguage language)
{
    static QTranslator* installed[2] = {};
    const QString code =
        QString::fromLatin1(language.row().code.data(), qsizetype(language.row().code.size()));
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
