// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "support/PrintableText.h"

#include <gtest/gtest.h>

namespace marvo {
namespace {

#define BAD "\xEF\xBF\xBD"

TEST(PrintableText, keepsLettersAndReplacesWhatDisguisesOrCommands)
{
    const std::pair<std::string, std::string> rows[] = {
        {"alwa_20240517_142000_F.avi", "alwa_20240517_142000_F.avi"},
        {"주행 café €😀\xE2\x80\xA7\xE2\x80\xAF\xE2\x81\xA5\xE2\x81\xAA\xC2\xA0",
         "주행 café €😀\xE2\x80\xA7\xE2\x80\xAF\xE2\x81\xA5\xE2\x81\xAA\xC2\xA0"},
        {std::string("a\0\x1B[2J\n\r\t\x7F", 9), "a" BAD BAD "[2J" BAD BAD BAD},
        {"\x7F~", BAD "~"},
        {"\xC2\x80\xC2\x9F", BAD BAD},
        {"\xE2\x80\xA8|\xE2\x80\xAA|\xE2\x80\xAE|", BAD "|" BAD "|" BAD "|"}, // U+2028, 202A, 202E
        {"\xE2\x81\xA6|\xE2\x81\xA9", BAD "|" BAD},                           // U+2066, 2069
        {"x\xFF\xE2\x80", "x" BAD BAD BAD},
    };
    for (const auto& [bytes, text] : rows)
        EXPECT_EQ(printableText(bytes), text);
}

} // namespace
} // namespace marvo
