// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/format/FileSystemImage.h"

#include "card/SystemArea.h"
#include "card/WritableVolume.h"
#include "support/System.h"

#include <QProcess>
#include <QStandardPaths>

#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace marvo {

namespace {

/// Administrators' programs are often not on a user's search path.
QString formatterProgram()
{
    const QString name = QStringLiteral("mkfs.fat");
    const QString found = QStandardPaths::findExecutable(name);
    return !found.isEmpty()
               ? found
               : QStandardPaths::findExecutable(name, {QStringLiteral("/usr/sbin"), QStringLiteral("/sbin")});
}

QString systemErrorText() { return QString::fromStdString(systemError().message()); }

/// Runs the formatter on the file. Returns its complaint, or nothing.
QString runFormatter(const QString& program, const FormatPlan& plan, int file, const std::stop_token& stop)
{
    QStringList arguments;
    for (const std::string& argument : formatterArguments(plan, "/proc/self/fd/" + std::to_string(file)))
        arguments.append(QString::fromStdString(argument));
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    process.setProcessEnvironment(environment);
    process.setChildProcessModifier([file] { ::fcntl(file, F_SETFD, 0); });
    process.start(program, arguments, QIODevice::ReadOnly);
    if (!process.waitForStarted())
        return process.errorString();
    while (!process.waitForFinished(100)) {
        if (process.state() == QProcess::NotRunning)
            break;
        if (stop.stop_requested()) {
            process.kill();
            process.waitForFinished();
            return QStringLiteral("stopped");
        }
    }
    if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
        return {};
    const QString complaint = QString::fromLocal8Bit(process.readAllStandardError()).trimmed();
    return complaint.isEmpty() ? QStringLiteral("mkfs.fat: %1").arg(process.exitCode()) : complaint;
}

} // namespace

FileSystemImage makeFileSystemImage(const FormatPlan& plan, const std::stop_token& stop)
{
    FileSystemImage image;
    const QString program = formatterProgram();
    if (program.isEmpty()) {
        image.formatterMissing = true;
        return image;
    }
    DeviceDescriptor file(openMemoryFile("marvo-format"));
    if (!file || ::ftruncate(file.get(), static_cast<off_t>(plan.volumeSize())) != 0) {
        image.error = systemErrorText();
        return image;
    }
    image.error = runFormatter(program, plan, file.get(), stop);
    if (!image.error.isEmpty())
        return image;
    // It also succeeds with too few clusters, and another version may lay the volume out differently.
    DescriptorVolume made(file.get());
    if (const auto fault = checkSystemArea(made, plan))
        image.error = QStringLiteral("mkfs.fat: ") + QString::fromStdString(*fault);
    else
        image.file = std::move(file);
    return image;
}

} // namespace marvo
