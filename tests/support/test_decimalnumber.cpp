// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "support/DecimalNumber.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNone = -12345;

struct Case
{
    const char* name;
    std::string text;
    double number;
};

class DecimalNumber : public testing::TestWithParam<Case>
{};

TEST_P(DecimalNumber, IsReadFromTheStart)
{
    EXPECT_EQ(marvo::readDecimalNumber(GetParam().text).value_or(kNone), GetParam().number);
}

const Case kCases[] = {
    {"empty", "", kNone},
    {"onlySpace", " \t", kNone},
    {"leadingSpace", " \t\n\v\f\r0.5", 0.5},
    {"unit", "0.3g", 0.3},
    {"comma", "0,3", 0},
    {"plus", "+1.5", 1.5},
    {"minus", "-2", -2},
    {"twoSigns", "+-3", kNone},
    {"twoMinus", "--3", kNone},
    {"signAlone", "-", kNone},
    {"signThenSpace", "- 3", kNone},
    {"pointFirst", ".5", 0.5},
    {"pointLast", "5.", 5},
    {"pointAlone", ".", kNone},
    {"twoPoints", "1.2.3", 1.2},
    {"exponent", "1e2", 100},
    {"exponentWithoutDigits", "12e", 12},
    {"exponentSignOnly", "12e+", 12},
    {"hexadecimal", "0x1f", 0},
    {"infinityByName", "inf", kNone},
    {"signedInfinity", "-infinity", kNone},
    {"nan", "nan", kNone},
    {"nanWithPayload", "+nan(1)", kNone},
    {"word", "abc", kNone},
    {"zeroByte", std::string("1\0002", 3), 1},
    {"tooLarge", "1e999", kInfinity},
    {"tooLargeNegative", "-1e999", -kInfinity},
    {"tooLargeWithoutExponent", std::string(400, '9'), kInfinity},
    {"tooLargeDespiteZeros", "0.000001e400", kInfinity},
    {"tooSmall", "1e-999", 0},
    {"tooSmallWithoutExponent", "0." + std::string(400, '0') + "1", 0},
    {"tooSmallDespiteDigits", "1000000e-400", 0},
    {"exponentBeyondCounting", "1e99999999999999999999", kInfinity},
    {"negativeExponentBeyondCounting", "1e-99999999999999999999", 0},
    {"zeroWithHugeExponent", "0e999", 0},
};

std::string nameOf(const testing::TestParamInfo<Case>& row) { return row.param.name; }

INSTANTIATE_TEST_SUITE_P(Texts, DecimalNumber, testing::ValuesIn(kCases), nameOf);

} // namespace
