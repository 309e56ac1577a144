// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// The application as a program: what it answers, and its report of itself.
#include "TemporaryFolder.h"
#include "viewer/WindowStage.h"

#include <QFile>
#include <QImage>
#include <QProcess>

using marvo::test::TemporaryFolder;

class WindowApplicationTest : public QObject
{
    Q_OBJECT

private:
    struct Ended
    {
        int exitCode = -1;
        QString out;
        QString error;
    };

    /// Nothing of the tester's own preferences is read or written.
    Ended run(const QStringList& arguments, bool hasDisplay = true) const
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), QString::fromStdString(m_home.path()));
        if (!hasDisplay) {
            environment.remove(QStringLiteral("DISPLAY"));
            environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
        }
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(MARVO_APPLICATION), arguments);
        if (!process.waitForFinished(100'000) || process.exitStatus() != QProcess::NormalExit)
            return {-1, {}, process.errorString()};
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    TemporaryFolder m_home;

private Q_SLOTS:
    void answersWithoutADisplay()
    {
        const std::pair<const char*, const char*> rows[] = {{"--help", "Usage: marvo"},
                                                            {"-v", "marvo " MARVO_VERSION}};
        for (const auto& [argument, text] : rows) {
            const Ended ended = run({QLatin1String(argument)}, false);
            QCOMPARE(ended.exitCode, 0);
            QVERIFY2(ended.out.contains(QLatin1String(text)), qPrintable(ended.out));
        }
    }

    void reportsWhatItReached()
    {
        TemporaryFolder card;
        card.makeFolder("EventMovie");
        QVERIFY(marvo::test::writeRecording(card.path("EventMovie/event_20240517_081530.avi"), 8));
        const QString picture = QString::fromStdString(card.path("report.png"));
        const Ended ended =
            run({QString::fromStdString(card.path()), QStringLiteral("--demo-report"), picture});
        QVERIFY2(ended.exitCode == 0, qPrintable(ended.error));
        for (const char* line : {"recordings listed: 1\n", "played: event_20240517_081530.avi\n",
                                 "samples extracted: 20 G-sensor, 19 GPS, 20 NMEA\n"})
            QVERIFY2(ended.out.contains(QLatin1StringView(line)), qPrintable(ended.out));
        for (const char* name : {"report.png", "report-map.png"})
            QCOMPARE(QImage(QString::fromStdString(card.path(name))).size(), QSize(1020, 640));
    }

    void reportsWhyItDidNot()
    {
        m_home.makeFolder("empty");
        m_home.write("broken/event_20240517_081530.avi", "no film");
        const QString home = QString::fromStdString(m_home.path());
        const QString report = QStringLiteral("--demo-report=/nowhere/report.png");
        const std::tuple<QStringList, int, const char*> rows[] = {
            {{QStringLiteral("/nowhere/at/all"), report}, 1, "cannot be read"},
            {{home + QStringLiteral("/empty"), report}, 1, "no recording"},
            {{home + QStringLiteral("/broken"), report}, 1, "cannot be played"},
            {{report}, 2, "needs a folder"},
            {{QStringLiteral("a"), QStringLiteral("b")}, 2, "more than one"},
            {{QStringLiteral("--nonsense")}, 2, "nonsense"},
            {{QStringLiteral("--language"), QStringLiteral("xx")}, 2, "no language xx"},
        };
        for (const auto& [arguments, exitCode, reason] : rows) {
            const Ended ended = run(arguments);
            QVERIFY2(ended.exitCode == exitCode, qPrintable(ended.error));
            QVERIFY2(ended.error.contains(QLatin1String(reason)), qPrintable(ended.error));
        }
    }
};

// With a connection to the display of its own: a virtual one starts afresh when the last of its clients
// leaves, and the next might come too early.
QTEST_MAIN(WindowApplicationTest)
#include "ApplicationTest.moc"
