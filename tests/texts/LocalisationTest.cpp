// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "texts/Localisation.h"

#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QLocale>
#include <QSettings>

namespace marvo {
namespace {

TEST(Localisation, theChoiceDecidesTextsAndMapTogether)
{
    const test::TemporaryFolder home;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QString::fromStdString(home.path()));
    QCoreApplication::setOrganizationName(QStringLiteral("marvo-language-test"));
    ASSERT_EQ(supportLanguage(), QStringLiteral("en")) << "the rows are those of the usual build";

    const bool koreanDesktop = QLocale::system().language() == QLocale::Korean;
    const struct
    {
        const char* choice;
        InterfaceLanguage language;
        const char* page;
    } rows[] = {
        {"", InterfaceLanguage::English, "map2_eng"},
        {"ko", InterfaceLanguage::Korean, "map2"},
        {"en", InterfaceLanguage::English, "map2_eng"},
        {"no such language", InterfaceLanguage::English, "map2_eng"},
        {"desktop", koreanDesktop ? InterfaceLanguage::Korean : InterfaceLanguage::English,
         koreanDesktop ? "map2" : "map2_eng"},
    };
    for (const auto& row : rows) {
        setLanguageChoice(QLatin1StringView(row.choice));
        EXPECT_EQ(interfaceLanguage(), row.language) << row.choice;
        EXPECT_EQ(mapPageName(), QLatin1StringView(row.page)) << row.choice;
    }
    setLanguageChoice(QStringLiteral("en"));
    useLanguage(InterfaceLanguage::Korean); // as "--language ko" does
    EXPECT_EQ(interfaceLanguage(), InterfaceLanguage::Korean);
    EXPECT_EQ(mapPageName(), QStringLiteral("map2"));
    EXPECT_EQ(languageChoice(), QStringLiteral("en")) << "the choice itself stays";
}

} // namespace
} // namespace marvo
