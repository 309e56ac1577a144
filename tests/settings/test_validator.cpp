// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/CarNumber.h"
#include "settings/MRVValidator.h"

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
    const struct
    {
        const char* text;
        Verdict verdict;
    } rows[] = {
        {"", Verdict::Accepted},        {"0.05", Verdict::Accepted},   {"1.5", Verdict::Accepted},
        {"0.3g", Verdict::Accepted},    {"  0.30", Verdict::Accepted}, {"　0.3", Verdict::Accepted},
        {"1.50000", Verdict::Accepted}, {"0.04", Verdict::OutOfRange}, {"1.51", Verdict::OutOfRange},
        {"0", Verdict::OutOfRange},     {"-0.5", Verdict::OutOfRange}, {"0,5", Verdict::OutOfRange},
        {"1e999", Verdict::OutOfRange}, {"0x1", Verdict::OutOfRange},  {"abc", Verdict::NoNumber},
        {" ", Verdict::NoNumber},       {"inf", Verdict::NoNumber},    {"nan", Verdict::NoNumber},
        {"g0.3", Verdict::NoNumber},    {"０.３", Verdict::NoNumber},
    };
    for (const auto& row : rows)
        EXPECT_EQ(verdict(row.text), row.verdict) << '"' << row.text << '"';
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
    const struct
    {
        const char* text;
        std::int32_t stored;
    } rows[] = {
        {"0.555", 55}, {"0.57", 56}, {"0.55", 55},   {"1.5", 150},          {"0.05", 5},
        {"", 0},       {"abc", 0},   {"-0.019", -1}, {"1e300", 2147483647}, {"-1e999", -2147483647 - 1},
    };
    for (const auto& row : rows)
        EXPECT_EQ(storedThreshold(QString::fromUtf8(row.text)), row.stored) << '"' << row.text << '"';
}

TEST(CarNumber, KeepsEightLettersAndDigits)
{
    const struct
    {
        const char* typed;
        const char* kept;
    } rows[] = {
        {"12 가 34-5Z", "12345Z"},
        {"ABCDEFGHIJ", "ABCDEFGH"},
        {"ab1", "ab1"},
        {"", ""},
        {"가나다", ""},
        {"１２３ＡＢ", ""},
        {"éA😀z", "Az"},
        {"@[`{/:19AZaz", "19AZaz"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(keptCarNumber(QString::fromUtf8(row.typed)), QString::fromUtf8(row.kept)) << row.typed;
}

TEST(EmptyString, IsNoneOrWithoutCharacters)
{
    EXPECT_TRUE(isEmptyString(std::nullopt));
    EXPECT_TRUE(isEmptyString(QString()));
    EXPECT_TRUE(isEmptyString(QStringLiteral("")));
    EXPECT_FALSE(isEmptyString(QStringLiteral(" ")));
}

} // namespace
