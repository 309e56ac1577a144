// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "texts/EnglishText.h"

#include <algorithm>

namespace marvo {

std::string_view englishText(std::string_view key)
{
    const std::span<const EnglishEntry> table = englishTable();
    const auto found = std::ranges::lower_bound(table, key, {}, &EnglishEntry::key);
    return found != table.end() && found->key == key ? found->text : key;
}

} // namespace marvo
