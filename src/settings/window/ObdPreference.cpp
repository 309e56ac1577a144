// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/window/ObdPreference.h"

#include <QDir>
#include <QFile>
#include <QSettings>

namespace marvo {

namespace {

QString preferenceKey() { return QStringLiteral("camera/hasObdAdapter"); }

} // namespace

bool ObdPreference::isOn() { return QSettings().value(preferenceKey(), false).toBool(); }

void ObdPreference::set(bool on) { QSettings().setValue(preferenceKey(), on); }

bool holdsObdLog(const std::string& cardFolder)
{
    const QDir logs(QFile::decodeName(cardFolder.c_str()) + QStringLiteral("/DrvInfo"));
    return !logs.entryList({QStringLiteral("*.obd")}, QDir::Files).isEmpty();
}

} // namespace marvo
