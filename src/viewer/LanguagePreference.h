// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

class QSettings;

namespace marvo {

/// Unless the build leaves the language to the desktop: tells the log which languages the user's preference
/// "AppleLanguages" has named so far, and overwrites it with the build's language.
void storeLanguagePreference(QSettings& preferences);

} // namespace marvo
