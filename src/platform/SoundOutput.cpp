// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "platform/SoundOutput.h"

#include <QDir>
#include <QFileInfo>
#include <QString>
#include <QStringList>

#include <unistd.h>

namespace marvo {

bool mayHaveSoundOutput()
{
    if (!qEnvironmentVariableIsEmpty("PULSE_SERVER"))
        return true;
    const QString runtime =
        qEnvironmentVariable("XDG_RUNTIME_DIR", QStringLiteral("/run/user/%1").arg(::getuid()));
    const QStringList places = {runtime + QStringLiteral("/pulse/native"),
                                QStringLiteral("/run/pulse/native"), QStringLiteral("/etc/asound.conf"),
                                QDir::homePath() + QStringLiteral("/.asoundrc")};
    for (const QString& place : places) {
        if (QFileInfo::exists(place))
            return true;
    }
    // Playback devices, such as pcmC0D0p.
    return !QDir(QStringLiteral("/dev/snd")).entryList({QStringLiteral("pcm*p")}, QDir::System).isEmpty();
}

} // namespace marvo
