// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "support/PrintableText.h"

#include "support/Utf8.h"

#include <algorithm>

namespace marvo {

namespace {

/// Of one well-formed character. UTF-8 sorts as its code points do.
bool isUnsafe(std::string_view character)
{
    const auto isWithin = [&](std::string_view first, std::string_view last) {
        return character >= first && character <= last;
    };
    return character < " " || isWithin("\x7F", "\x7F") || isWithin("\xC2\x80", "\xC2\x9F") ||
           isWithin("\xE2\x80\xA8", "\xE2\x80\xAE") || isWithin("\xE2\x81\xA6", "\xE2\x81\xA9");
}

} // namespace

std::string printableText(std::string_view bytes)
{
    if (std::ranges::all_of(bytes, [](char c) { return c >= ' ' && c < '\x7F'; }))
        return std::string(bytes);

    std::string text;
    while (!bytes.empty()) {
        const std::size_t length = utf8CharacterLength(bytes);
        const std::string_view character = bytes.substr(0, length);
        text += length == 0 || isUnsafe(character) ? std::string_view("\xEF\xBF\xBD") : character;
        bytes.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return text;
}

} // namespace marvo
