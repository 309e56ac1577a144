// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace marvo {

/// Bytes from outside (a file name, a label, an argument) as text that is safe to show, log or copy. U+FFFD
/// replaces malformed bytes, control characters, which a terminal takes as commands, line separators, and the
/// characters that change the direction of text (U+202A to U+202E, U+2066 to U+2069), which can disguise a
/// name.
std::string printableText(std::string_view bytes);

} // namespace marvo
