// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace marvo::cli {

/// Bytes of foreign origin for a terminal, which takes some characters as commands: U+FFFD in place of
/// control characters and of what is not UTF-8.
std::string printable(std::string_view bytes);

} // namespace marvo::cli
