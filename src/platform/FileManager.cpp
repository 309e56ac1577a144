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
#include <utility>

namespace marvo {

namespace {

Q_LOGGING_CATEGORY(logFileManager, "marvo.filemanager")

/// Made from bytes, since a name need not be UTF-8.
QString fileUri(const std::string& path)
{
    return QStringLiteral("file://") +
           QString::fromLatin1(QByteArray::fromStdString(path).toPercentEncoding("/"));
}

} // namespace

void showInFileManager(const std::string& path, QObject* context, std::function<void()> failed)
{
    // If no file manager listens, the desktop opens the folder.
    const auto openFolder = [folder = path.substr(0, std::max<std::size_t>(1, path.rfind('/'))),
                             failed = std::move(failed)](const QString& reason) {
        if (QProcess::startDetached(QStringLiteral("xdg-open"), {fileUri(folder)}))
            return;
        qCWarning(logFileManager).noquote()
            << "cannot show" << QString::fromStdString(folder) << ':' << reason;
        failed();
    };

    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    message << QStringList{fileUri(path)} << QString();
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) { // a call would never be answered
        QMetaObject::invokeMethod(
            context, [openFolder] { openFolder(QStringLiteral("no session bus")); }, Qt::QueuedConnection);
        return;
    }
    auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(message), context);
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [answer, openFolder] {
        answer->deleteLater();
        const QDBusPendingReply<> reply = *answer;
        if (reply.isError())
            openFolder(reply.error().message());
    });
}

} // namespace marvo
