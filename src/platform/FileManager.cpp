// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "platform/FileManager.h"

#include <QByteArray>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QLoggingCategory>
#include <QProcess>
#include <QStringList>

#include <algorithm>

namespace marvo {

namespace {

Q_LOGGING_CATEGORY(logFileManager, "marvo.filemanager")

/// Of the bytes, so that a name that is not UTF-8 is found, too.
QString fileUri(const std::string& path)
{
    return QStringLiteral("file://") +
           QString::fromLatin1(QByteArray::fromStdString(path).toPercentEncoding("/"));
}

} // namespace

void showInFileManager(const std::string& path)
{
    const std::string folder = path.substr(0, std::max<std::size_t>(1, path.rfind('/')));
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    message << QStringList{fileUri(path)} << QString();
    auto* answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message));
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [answer, folder] {
        answer->deleteLater();
        const QDBusPendingReply<> reply = *answer;
        if (!reply.isError())
            return;
        // No file manager that listens; the desktop opens the folder with whatever it has.
        if (!QProcess::startDetached(QStringLiteral("xdg-open"), {fileUri(folder)}))
            qCWarning(logFileManager).noquote()
                << "cannot show" << QString::fromStdString(folder) << ':' << reply.error().message();
    });
}

} // namespace marvo
