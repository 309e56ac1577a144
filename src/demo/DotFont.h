// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>

namespace marvo::demo {

inline constexpr int dotGlyphWidth = 5;
inline constexpr int dotGlyphHeight = 7;

/// Seven rows of five dots, the leftmost dot in the highest bit.
using DotGlyph = std::array<std::uint8_t, dotGlyphHeight>;

/// The dots of a character: digits, letters (small ones look like capitals except k, m and h) and the
/// punctuation of a stamp line; an empty glyph for anything else.
const DotGlyph& dotGlyph(char character);

} // namespace marvo::demo
