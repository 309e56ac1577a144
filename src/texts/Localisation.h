// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "texts/InterfaceLanguage.h"

#include <QString>

namespace marvo {

/// The language code that the product is built for, the build option SUPPORT_LANGUAGE: "en", "ko" or "auto".
QString supportLanguage();

/// The user's choice under the preference "interfaceLanguage": a language's code, or "desktop" for the
/// desktop's own; empty without a choice.
QString languageChoice();
/// Keeps a choice for the next start; an empty one takes it away.
void setLanguageChoice(const QString& choice);
/// Uses a language in place of the user's choice until the program ends. To be called before any text is
/// asked for.
void useLanguage(InterfaceLanguage language);

/// The language of the interface: the one that useLanguage() was given, else the user's choice, else the one
/// that the product is built for, where "auto" follows the desktop.
InterfaceLanguage interfaceLanguage();
/// The page that maps load, by its name in the application's resources. It is in the interface's language,
/// but without a choice it is "map2" only in a product built for Korean, so "auto" has the English page.
QString mapPageName();

/// Loads the string table of a language and Qt's own, for its file and print dialogs; later texts come from
/// them. Call again to change the language. Needs a QCoreApplication. False when the string table is missing
/// from the program, and then nothing has changed.
bool installLanguage(InterfaceLanguage language);

/// The text of a key in the string table, such as "media.event"; the key itself where the table has none.
QString localised(const char* key);
QString localised(const QString& key);

} // namespace marvo
