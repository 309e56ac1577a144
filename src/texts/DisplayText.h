// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/PrintableText.h"

#include <QString>

namespace marvo {

/// Bytes from outside, such as a path, as text to show, log or copy; see printableText().
inline QString displayText(std::string_view bytes) { return QString::fromStdString(printableText(bytes)); }

/// The same for text from outside, such as a volume's label.
inline QString displayText(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    return displayText(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

} // namespace marvo
