// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// polkit_agent PID FOLDER: stands in for the desktop's question for the administrator's password, for the
// process PID. It answers what FOLDER/answer holds ("yes", "no", "dismiss"; "wait" until it is another) after
// it has run FOLDER/hook, if there is one, and adds the name of each action that it was asked for to
// FOLDER/asked.
#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVirtualObject>
#include <QFile>
#include <QProcess>
#include <QThread>

#include <cstdio>
#include <sys/stat.h>

/// A polkit subject or identity: a kind and its details.
struct Party
{
    QString kind;
    QVariantMap details;
};
Q_DECLARE_METATYPE(Party)

QDBusArgument& operator<<(QDBusArgument& argument, const Party& party)
{
    argument.beginStructure();
    argument << party.kind << party.details;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Party& party)
{
    argument.beginStructure();
    argument >> party.kind >> party.details;
    argument.endStructure();
    return argument;
}

namespace {

QDBusMessage authorityCall(const char* method, const QVariantList& arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.PolicyKit1"), QStringLiteral("/org/freedesktop/PolicyKit1/Authority"),
        QStringLiteral("org.freedesktop.PolicyKit1.Authority"), QLatin1String(method));
    message.setArguments(arguments);
    return message;
}

class Agent : public QDBusVirtualObject
{
public:
    explicit Agent(QString folder) : m_folder(std::move(folder)) {}

    QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override
    {
        if (message.member() != QLatin1String("BeginAuthentication"))
            return false;
        const QVariantList arguments = message.arguments();
        const QString action = arguments.value(0).toString();
        QFile asked(m_folder + QStringLiteral("/asked"));
        if (asked.open(QIODevice::Append))
            asked.write(action.toUtf8() + '\n');
        asked.close();
        if (QFile::exists(m_folder + QStringLiteral("/hook")))
            QProcess::execute(QStringLiteral("bash"), {m_folder + QStringLiteral("/hook")});
        QByteArray answer = "wait";
        while (answer == "wait") {
            QThread::msleep(20);
            QFile file(m_folder + QStringLiteral("/answer"));
            answer = file.open(QIODevice::ReadOnly) ? file.readAll().trimmed() : QByteArray("no");
        }
        if (answer == "dismiss") {
            bus.send(message.createErrorReply(QStringLiteral("org.freedesktop.PolicyKit1.Error.Cancelled"),
                                              QStringLiteral("dismissed")));
            return true;
        }
        if (answer == "yes") {
            const Party root{QStringLiteral("unix-user"), {{QStringLiteral("uid"), 0U}}};
            QDBusConnection(bus).call(
                authorityCall("AuthenticationAgentResponse2",
                              {0U, arguments.value(4).toString(), QVariant::fromValue(root)}));
        }
        bus.send(message.createReply());
        return true;
    }

private:
    QString m_folder;
};

quint64 startTimeOf(const QString& pid)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray stat = file.readAll();
    return stat.mid(stat.lastIndexOf(')') + 2).split(' ').value(19).toULongLong();
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() != 3)
        return 2;
    qDBusRegisterMetaType<Party>();
    QDBusConnection bus = QDBusConnection::systemBus();
    Agent agent(arguments[2]);
    const QString path = QStringLiteral("/agent");
    if (!bus.registerVirtualObject(path, &agent))
        return 1;
    struct stat process = {};
    ::stat(QFile::encodeName(QStringLiteral("/proc/") + arguments[1]).constData(), &process);
    const Party subject{QStringLiteral("unix-process"),
                        {{QStringLiteral("pid"), arguments[1].toUInt()},
                         {QStringLiteral("start-time"), startTimeOf(arguments[1])},
                         {QStringLiteral("uid"), static_cast<int>(process.st_uid)}}};
    const QDBusMessage reply = bus.call(authorityCall(
        "RegisterAuthenticationAgent", {QVariant::fromValue(subject), QStringLiteral("C"), path}));
    if (reply.type() != QDBusMessage::ReplyMessage) {
        std::fprintf(stderr, "%s\n", qPrintable(reply.errorMessage()));
        return 1;
    }
    std::puts("ready");
    std::fflush(stdout);
    return QCoreApplication::exec();
}
