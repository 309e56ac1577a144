// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/ByteSize.h"

#include <gtest/gtest.h>

namespace marvo {

namespace {

TEST(ByteSize, roundsTiesToEvenAndIsCutAtSixCharacters)
{
    constexpr std::uint64_t kB = 1024;
    constexpr std::uint64_t MB = 1024 * kB;
    const std::pair<std::uint64_t, const char*> rows[] = {{0, "0 B"},
                                                          {1023, "1023 B"},
                                                          {kB, "1.0 kB"},
                                                          {kB + 250, "1.2 kB"},
                                                          {kB + 350, "1.4 kB"},
                                                          {MB + 250 * kB + 1, "1.3 MB"},
                                                          {kB + 949, "1.9 kB"},
                                                          {1997, "2.0 kB"},
                                                          {9 * kB + 950, "10 kB"},
                                                          {10 * kB + 512, "10 kB"},
                                                          {11 * kB + 512, "12 kB"},
                                                          {10 * MB + 512 * kB + 1, "11 MB"},
                                                          {1000 * kB, "1000 k"},
                                                          {1023 * kB + 511, "1023 k"},
                                                          {1048064, "1.0 MB"},
                                                          {7948206080, "7.4 GB"},
                                                          {~std::uint64_t{0}, "16 EB"}};
    for (const auto& [bytes, text] : rows)
        EXPECT_EQ(byteSizeString(bytes), text) << bytes;
}

} // namespace

} // namespace marvo
