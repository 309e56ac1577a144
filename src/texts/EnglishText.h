// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>

namespace marvo {

/// A key of the English string table and its text, UTF-8.
struct EnglishEntry
{
    std::string_view key;
    std::string_view text;
};

/// The English string table, sorted by key; made from resources/strings by the build.
std::span<const EnglishEntry> englishTable();

/// The English text of a key in the string tables, for output without a window; the key itself if the tables
/// have none. The view is always valid if the table has the key, otherwise as long as the key.
std::string_view englishText(std::string_view key);

} // namespace marvo
