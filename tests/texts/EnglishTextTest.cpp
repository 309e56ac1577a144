// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "texts/EnglishText.h"
#include "texts/Localisation.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

namespace marvo {

namespace {

// The tool's titles and the windows' must not part: both ways to a text lead through files of their own.
TEST(EnglishTexts, areThoseOfTheWindows)
{
    int argc = 0;
    const QCoreApplication application(argc, nullptr);
    ASSERT_TRUE(installLanguage(InterfaceLanguage::English));
    ASSERT_FALSE(englishTable().empty());
    for (const EnglishEntry& entry : englishTable()) {
        const std::string key(entry.key);
        EXPECT_EQ(englishText(key), entry.text);
        EXPECT_EQ(localised(key.c_str()).toStdString(), entry.text) << key;
    }
    for (const std::string_view absent : {"", "a", "media.", "media.eventful", "zzz"})
        EXPECT_EQ(englishText(absent), absent);
}

} // namespace

} // namespace marvo
