// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "cli/Printable.h"

#include "support/Utf8.h"

#include <algorithm>

namespace marvo::cli {

std::string printable(std::string_view bytes)
{
    const auto isPlain = [](char c) { return c >= ' ' && c < '\x7F'; };
    if (std::ranges::all_of(bytes, isPlain))
        return std::string(bytes);

    std::string text;
    while (!bytes.empty()) {
        const std::size_t length = utf8CharacterLength(bytes);
        const std::string_view character = bytes.substr(0, length);
        const auto first = static_cast<unsigned char>(bytes.front());
        const bool isControl =
            first < 0x20 || first == 0x7F || (character >= "\xC2\x80" && character < "\xC2\xA0");
        text += length == 0 || isControl ? std::string_view("\xEF\xBF\xBD") : character;
        bytes.remove_prefix(length == 0 ? 1 : length);
    }
    return text;
}

} // namespace marvo::cli
