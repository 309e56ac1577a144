// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/MRVValidator.h"
#include "settings/CarNumber.h"

#include "texts/Localisation.h"

#include <gtest/gtest.h>
#include <QCoreApplication>

namespace {

using namespace marvo;

enum class Verdict { Accepted, NoNumber, OutOfRange };

class Validator : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        static int argc = 0;
        static QCoreApplication application(argc, nullptr);
        ASSERT_TRUE(installLanguage(InterfaceLanguage::English));
    }
};

Verdict verdict(const char* text)
{
    const std::optional<QString> message = MRVValidator::validateGsensorThreshold(QString::fromUtf8(text));
    if (!message)
        return Verdict::Accepted;
    return *message == localised("msg.input_value_invalid_format") ? Verdict::NoNumber : Verdict::OutOfRange;
}

TEST_F(Validator, JudgesThresholds)
{
    const std::pair<const char*, Verdict> rows[] = {
        {"", Verdict::Accepted},        {"0.05", Verdict::Accepted},   {"1.5", Verdict::Accepted},
        {"0.3g", Verdict::Accepted},    {"  0.30", Verdict::Accepted}, {"　0.3", Verdict::Accepted},
        {"1.50000", Verdict::Accepted}, {"0.04", Verdict::OutOfRange}, {"1.51", Verdict::OutOfRange},
        {"0", Verdict::OutOfRange},     {"-0.5", Verdict::OutOfRange}, {"0,5", Verdict::OutOfRange},
        {"1e999", Verdict::OutOfRange}, {"0x1", Verdict::OutOfRange},  {"abc", Verdict::NoNumber},
        {" ", Verdict::NoNumber},       {"inf", Verdict::NoNumber},    {"nan", Verdict::NoNumber},
        {"g0.3", Verdict::NoNumber},    {"０.３", Verdict::NoNumber}};
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(verdict(text), expected) << '"' << text << '"';
}

TEST_F(Validator, NamesBothBoundsInEachLanguage)
{
    for (const InterfaceLanguage language : {InterfaceLanguage::Korean, InterfaceLanguage::English}) {
        ASSERT_TRUE(installLanguage(language));
        const QString message =
            MRVValidator::validateGsensorThreshold(QStringLiteral("2")).value_or(QString());
        EXPECT_GT(message.indexOf(QStringLiteral("1.5")), message.indexOf(QStringLiteral("0.05")));
        EXPECT_GE(message.indexOf(QStringLiteral("0.05")), 0);
        for (const char* key : {"msg.input_value_invalid_format", "msg.sdcard_ratio_too_low"})
            EXPECT_NE(localised(key), QLatin1StringView(key));
    }
}

TEST_F(Validator, WantsTenPerCentOfTheCard)
{
    for (const int tooLow : {9, 0, -1, std::numeric_limits<int>::min()})
        EXPECT_EQ(MRVValidator::validateSDCardSizeRatio(tooLow), localised("msg.sdcard_ratio_too_low"))
            << tooLow;
    for (const int enough : {10, 100})
        EXPECT_FALSE(MRVValidator::validateSDCardSizeRatio(enough)) << enough;
}

TEST(StoredThreshold, IsTruncatedHundredths)
{
    const std::pair<const char*, std::int32_t> rows[] = {{"0.555", 55},
                                                         {"0.57", 56},
                                                         {"", 0},
                                                         {"abc", 0},
                                                         {"-0.019", -1},
                                                         {"1e300", 2147483647},
                                                         {"-1e999", -2147483647 - 1}};
    for (const auto& [text, stored] : rows)
        EXPECT_EQ(storedThreshold(QString::fromUtf8(text)), stored) << '"' << text << '"';
}

TEST(CarNumber, KeepsEightLettersAndDigits)
{
    const std::pair<const char*, const char*> rows[] = {
        {"ABCDEFGHIJ", "ABCDEFGH"}, {"ab1", "ab1"}, {"가나다", ""},
        {"１２３ＡＢ", ""},         {"éA😀z", "Az"}, {"@[`{/:19AZaz", "19AZaz"}};
    for (const auto& [typed, kept] : rows)
        EXPECT_EQ(keptCarNumber(QString::fromUtf8(typed)), QString::fromUtf8(kept)) << typed;
}

} // namespace
