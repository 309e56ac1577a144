// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace marvo {

/// The time zones that the camera knows, as differences from UTC ("-12:00" to "+13:00"); the settings record
/// holds the index.
const QStringList& timeZoneTexts();

} // namespace marvo
