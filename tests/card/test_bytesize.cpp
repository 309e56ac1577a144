// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/ByteSize.h"

#include <gtest/gtest.h>

namespace marvo {

namespace {

struct SizeCase
{
    const char* name;
    std::uint64_t bytes;
    const char* text;
};

class ByteSize : public testing::TestWithParam<SizeCase>
{};

TEST_P(ByteSize, text) { EXPECT_EQ(byteSizeString(GetParam().bytes), GetParam().text); }

constexpr std::uint64_t kB = 1024;
constexpr std::uint64_t MB = 1024 * kB;
constexpr std::uint64_t GB = 1024 * MB;
constexpr std::uint64_t EB = 1024 * 1024 * GB * 1024;

INSTANTIATE_TEST_SUITE_P(
    sizes, ByteSize,
    testing::Values(
        SizeCase{"nothing", 0, "0 B"}, SizeCase{"lastByte", 1023, "1023 B"}, SizeCase{"one", kB, "1.0 kB"},
        SizeCase{"oneAndAHalf", 1536, "1.5 kB"}, SizeCase{"tenthTieEvenStays", kB + 250, "1.2 kB"},
        SizeCase{"tenthTieOddGoesUp", kB + 350, "1.4 kB"},
        SizeCase{"tenthTieWithLostBytes", MB + 250 * kB + 1, "1.3 MB"},
        SizeCase{"belowNextWhole", kB + 949, "1.9 kB"}, SizeCase{"nextWhole", 1997, "2.0 kB"},
        SizeCase{"nineBecomesTen", 9 * kB + 950, "10 kB"}, SizeCase{"ten", 10 * kB, "10 kB"},
        SizeCase{"tieEvenStays", 10 * kB + 512, "10 kB"}, SizeCase{"tieOddGoesUp", 11 * kB + 512, "12 kB"},
        SizeCase{"tieWithLostBytes", 10 * MB + 512 * kB + 1, "11 MB"},
        SizeCase{"cutAtSix", 1000 * kB, "1000 k"}, SizeCase{"notYetNextUnit", 1023 * kB + 511, "1023 k"},
        SizeCase{"nextUnit", 1048064, "1.0 MB"}, SizeCase{"card", 7948206080, "7.4 GB"},
        SizeCase{"everything", ~std::uint64_t{0}, "16 EB"}, SizeCase{"exabyte", EB, "1.0 EB"}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace

} // namespace marvo
