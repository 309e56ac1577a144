// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string_view>

namespace marvo {

/// Bytes from a card, such as a path, as text to show: UTF-8, with a replacement character for malformed
/// bytes.
inline QString displayText(std::string_view bytes)
{
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

} // namespace marvo
