// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "texts/InterfaceLanguage.h"

#include <QString>

namespace marvo {

/// The language code that the product is built for, the build option SUPPORT_LANGUAGE: "en", "ko" or "auto".
QString supportLanguage();

/// The language that the product is built for: "ko" is Korean, "en"
/// English, "auto" follows the desktop's own language.
InterfaceLanguage builtLanguage();

/// Loads the string table of a language, and Qt's own for its file and print dialogs. Call again to change
/// the language. Needs a QCoreApplication. False, with nothing changed, when the program lacks the string
/// table.
bool installLanguage(InterfaceLanguage language);

/// The text of a key in the string table, such as "media.event"; the key itself where the table has none.
QString localised(const char* key);
QString localised(const QString& key);

} // namespace marvo
