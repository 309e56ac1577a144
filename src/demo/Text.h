// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <string>

namespace marvo::demo {

/// What printf would print; 255 characters at most.
template <typename... Values>
std::string printed(const char* format, Values... values)
{
    char text[256];
    const int length = std::snprintf(text, sizeof text, format, values...);
    return length < 0 ? std::string() : std::string(text, std::min<std::size_t>(length, sizeof text - 1));
}

} // namespace marvo::demo
