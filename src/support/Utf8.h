// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace marvo {

/// Length in bytes (1 to 4) of the well-formed UTF-8 character that the text begins with (RFC 3629: no
/// surrogates, no overlong forms, nothing above U+10FFFF); 0 when the text is empty or begins with a
/// malformed one.
std::size_t utf8CharacterLength(std::string_view text);

/// Number of leading ASCII bytes.
std::size_t asciiLength(std::string_view text);

/// True when the whole text is well-formed UTF-8.
bool isValidUtf8(std::string_view text);

/// Number of characters (code points); a malformed byte counts as one.
std::size_t utf8Length(std::string_view text);

} // namespace marvo
