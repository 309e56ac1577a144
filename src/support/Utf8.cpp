// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "support/Utf8.h"

#include <cstdint>
#include <cstring>

namespace marvo {

// Most text is nothing else, so it is looked at eight bytes at a time.
std::size_t asciiLength(std::string_view text)
{
    constexpr std::uint64_t highBits = 0x8080808080808080;
    std::size_t i = 0;
    for (std::uint64_t word; i + sizeof word <= text.size(); i += sizeof word) {
        std::memcpy(&word, text.data() + i, sizeof word);
        if (word & highBits)
            break;
    }
    while (i < text.size() && static_cast<unsigned char>(text[i]) < 0x80)
        ++i;
    return i;
}

std::size_t utf8CharacterLength(std::string_view text)
{
    if (text.empty())
        return 0;
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(0);
    if (lead < 0x80)
        return 1;

    // The range of the second byte is what rules out overlong forms, surrogates and values above U+10FFFF.
    std::size_t length = 0;
    unsigned char low = 0x80;
    unsigned char high = 0xBF;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        low = lead == 0xE0 ? 0xA0 : 0x80;
        high = lead == 0xED ? 0x9F : 0xBF;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        low = lead == 0xF0 ? 0x90 : 0x80;
        high = lead == 0xF4 ? 0x8F : 0xBF;
    }
    if (length == 0 || text.size() < length || byte(1) < low || byte(1) > high)
        return 0;
    for (std::size_t i = 2; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80)
            return 0;
    }
    return length;
}

bool isValidUtf8(std::string_view text)
{
    for (;;) {
        text.remove_prefix(asciiLength(text));
        if (text.empty())
            return true;
        const std::size_t length = utf8CharacterLength(text);
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
}

std::size_t utf8Length(std::string_view text)
{
    std::size_t count = asciiLength(text);
    for (text.remove_prefix(count); !text.empty(); ++count) {
        const std::size_t length = utf8CharacterLength(text);
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return count;
}

} // namespace marvo
