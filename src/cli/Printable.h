// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace marvo::cli {

/// Bytes of foreign origin as text for a terminal, which takes some characters as commands: U+FFFD replaces
/// control characters and malformed bytes.
std::string printable(std::string_view bytes);

} // namespace marvo::cli
