// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QString>

#include <grp.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace marvo::testing {

/// A shell that stays the administrator's after the test itself has become an ordinary user, who is asked for
/// passwords and may not open devices.
class RootShell
{
public:
    RootShell()
    {
        m_shell.setProcessChannelMode(QProcess::MergedChannels);
        m_shell.start(QStringLiteral("bash"), {QStringLiteral("--norc")});
        m_shell.waitForStarted();
    }
    ~RootShell()
    {
        m_shell.write("kill $(jobs -p)\nexit\n");
        m_shell.closeWriteChannel();
        m_shell.waitForFinished(3000);
    }

    /// Makes this process the user nobody's for good.
    static bool becomeOrdinaryUser()
    {
        constexpr uid_t nobody = 65534;
        return ::setgroups(0, nullptr) == 0 && ::setresgid(nobody, nobody, nobody) == 0 &&
               ::setresuid(nobody, nobody, nobody) == 0 && ::prctl(PR_SET_DUMPABLE, 1) == 0;
    }

    /// Runs a command and waits for it. Its output, and whether it succeeded.
    bool run(const QString& command, QString* output = nullptr)
    {
        m_shell.write((command + QStringLiteral("\necho \"[done $?]\"\n")).toUtf8());
        QByteArray text;
        while (!text.contains("[done ") || !text.endsWith("]\n")) {
            if (!m_shell.waitForReadyRead(40000)) {
                qInfo("%s: no answer", qUtf8Printable(command));
                return false;
            }
            text += m_shell.readAll();
        }
        const qsizetype end = text.lastIndexOf("[done ");
        if (output)
            *output = QString::fromUtf8(text.left(end)).trimmed();
        const bool succeeded = text.mid(end) == "[done 0]\n";
        if (!succeeded)
            qInfo("%s: %s", qUtf8Printable(command), text.constData());
        return succeeded;
    }
    QString output(const QString& command)
    {
        QString text;
        run(command, &text);
        return text;
    }

private:
    QProcess m_shell;
};

} // namespace marvo::testing
