// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "support/DecimalNumber.h"

#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace {

using namespace std::string_literals;
constexpr double infinity = std::numeric_limits<double>::infinity();

std::vector<double> read(const std::vector<std::string>& texts)
{
    std::vector<double> numbers;
    for (const std::string& text : texts)
        numbers.push_back(marvo::readDecimalNumber(text).value_or(-12345));
    return numbers;
}

TEST(DecimalNumber, IsReadFromTheStart)
{
    EXPECT_EQ(read({" \t\n\v\f\r0.5", "0.3g", "0,3", "+1.5", "-2", ".5", "5.", "1.2.3", "1e2", "12e", "12e+",
                    "0x1f", "1\0002"s}),
              (std::vector<double>{0.5, 0.3, 0, 1.5, -2, .5, 5, 1.2, 100, 12, 12, 0, 1}));
    for (const char* none :
         {"", " \t", "+-3", "--3", "-", "- 3", ".", "inf", "-infinity", "nan", "+nan(1)", "abc"})
        EXPECT_FALSE(marvo::readDecimalNumber(none)) << none;
}

TEST(DecimalNumber, OfAnySizeIsInfiniteOrZeroBeyondADouble)
{
    EXPECT_EQ(read({"1e999", std::string(400, '9'), "0.000001e400", "1e99999999999999999999"}),
              std::vector<double>(4, infinity));
    EXPECT_EQ(read({"-1e999"}), std::vector{-infinity});
    EXPECT_EQ(read({"1e-999", "0." + std::string(400, '0') + "1", "1000000e-400", "1e-99999999999999999999",
                    "0e999"}),
              std::vector<double>(5));
}

} // namespace
