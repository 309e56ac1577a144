// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "map/MapScriptChannel.h"
#include "map/MapTileSource.h"

#include <QtTest>

#include <limits>

using namespace marvo;

namespace {

const QString positionA = QStringLiteral("setLatLag('126.979361','37.552057')");
const QString positionB = QStringLiteral("setLatLag('151.200000','-33.900000')");
const QString positionC = QStringLiteral("setLatLag('-0.000001','0.500000')");
const QString noData = QStringLiteral("MRVDebug('GPS Data Count=Zero')");

/// Stands in for the page: keeps what it is given, answers when told to.
struct Page
{
    QStringList ran;
    QList<std::function<void()>> unanswered;

    MapScriptChannel::Runner runner()
    {
        return [this](const QString& statement, std::function<void()> done) {
            ran.append(statement);
            unanswered.append(std::move(done));
        };
    }
    void answerAll()
    {
        while (!unanswered.isEmpty())
            unanswered.takeFirst()();
    }
    QStringList take() { return std::exchange(ran, {}); }
};

} // namespace

class MapChannelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aBusyPageGetsTheLatestOfEachKind()
    {
        Page page;
        MapScriptChannel channel(page.runner());
        channel.pageReady();
        channel.setLatLag({126.979361, 37.552057});
        channel.setLatLag({9, 9});
        channel.debug(QStringLiteral("GPS Data Count=Zero"));
        channel.setLatLag({151.2, -33.9});
        QCOMPARE(page.take(), QStringList({positionA}));
        page.answerAll();
        // The order of the last asking: a position after the message takes the message's notice away again.
        QCOMPARE(page.take(), QStringList({noData, positionB}));
        channel.setLatLag({-0.000001, 0.5});
        QCOMPARE(page.take(), QStringList({positionC}));
    }

    void aNewRecordingWithdrawsTheOldOne()
    {
        Page page;
        MapScriptChannel channel(page.runner());
        channel.pageReady();
        channel.setLatLag({126.979361, 37.552057});
        channel.setLatLag({1, 1});
        channel.setWay({{1, 1}});
        channel.debug(QStringLiteral("old"));
        channel.newRecording();
        channel.setLatLag({151.2, -33.9});
        page.answerAll();
        QCOMPARE(page.take(), QStringList({positionA, QStringLiteral("marvoMap.newRecording()"), positionB}));

        channel.pageLost();
        channel.pageReady();
        page.answerAll();
        QCOMPARE(page.take(), QStringList({positionB})); // nothing of the recording before comes back
    }

    void aDeadPageCountsNoMoreAndItsSuccessorKnowsAll()
    {
        Page page;
        MapScriptChannel channel(page.runner());
        channel.pageReady();
        channel.breakWay(); // of nothing
        channel.setLatLag({126.979361, 37.552057});
        channel.breakWay();
        channel.breakWay();
        channel.setLatLag({151.2, -33.9});
        auto lateAnswer = page.unanswered.takeFirst();
        page.take();
        channel.pageLost();
        channel.debug(QStringLiteral("GPS Data Count=Zero"));
        lateAnswer();
        QCOMPARE(page.ran, QStringList());

        channel.setTiles(QStringLiteral("https://t/{z}"), QStringLiteral("©"));
        channel.setWay({{1, 2}, {1, 2}, {3, 4}});
        channel.pageReady();
        QCOMPARE(page.ran.size(), 1);
        lateAnswer(); // of the dead page: must not let a second statement into flight
        QCOMPARE(page.ran.size(), 1);
        page.answerAll();
        QCOMPARE(page.take(),
                 QStringList(
                     {QStringLiteral("marvoMap.setWay([[1.000000,2.000000],[3.000000,4.000000]])"),
                      QStringLiteral(
                          "marvoMap.restoreDriven([[126.979361,37.552057],null,[151.200000,-33.900000]])"),
                      positionB, noData,
                      QStringLiteral("marvoMap.setTiles({address:'https://t/{z}',attribution:'\\u00a9'})")}));

        channel.pageLost();
        channel.setLatLag({-0.000001, 0.5}); // takes the message's notice away
        channel.pageReady();
        page.answerAll();
        QVERIFY(page.ran.contains(positionC) && !page.ran.contains(noData));
    }

    void anAnswerAfterTheChannelHasGone()
    {
        Page page;
        auto channel = std::make_unique<MapScriptChannel>(page.runner());
        channel->pageReady();
        channel->setLatLag({1, 1});
        channel->setLatLag({2, 2});
        channel.reset();
        page.answerAll();
        QCOMPARE(page.ran.size(), 1);
    }

    void statements()
    {
        const double inf = std::numeric_limits<double>::infinity();
        const double nan = std::numeric_limits<double>::quiet_NaN();
        const std::pair<QString, const char*> rows[] = {
            {mapStatement::setLatLag({-126.9793607, 37.55205751}), "setLatLag('-126.979361','37.552058')"},
            {mapStatement::debug(QStringLiteral("');x('\\")), "MRVDebug('\\');x(\\'\\\\')"},
            {mapStatement::debug(QStringLiteral("a\n\u2028")), "MRVDebug('a\\u000a\\u2028')"},
            {mapStatement::setWay({{inf, 1}, {1, nan}, {1, 1}}), "marvoMap.setWay([[1.000000,1.000000]])"},
        };
        for (const auto& [statement, expected] : rows)
            QCOMPARE(statement, QLatin1String(expected));
    }

    void tileAddresses()
    {
        struct Row
        {
            const char* text;
            const char* usable;
            const char* request;
            bool isServed = false;
        };
        const char* osm = "https://tile.openstreetmap.org/{z}/{x}/{y}.png";
        const Row rows[] = {
            {osm, osm, "https://tile.openstreetmap.org:443/1/2/3.png", true},
            {osm, osm, "https://a.tile.openstreetmap.org/1/2/3.png"},
            {osm, osm, "http://tile.openstreetmap.org/1/2/3.png"},
            {osm, osm, "https://tile.openstreetmap.org:8443/"},
            {" http://{s}.t:81/{z}/{y}/{x}{r} ", "http://a.t:81/{z}/{y}/{x}", "http://a.t:81/1/1/1", true},
            {"", "", ""},
            {"file:///{z}/{x}/{y}", "", "file:///etc/passwd"},
            {"javascript:alert({z}{x}{y})", "", ""},
            {"https://t/{z}/{x}", "", ""},
            {"https:///{x}{y}{z}", "", ""},
        };
        for (const Row& row : rows) {
            const QString address = MapTileSource::usableAddress(QLatin1String(row.text));
            QCOMPARE(address, QLatin1String(row.usable));
            const MapTileSource source{address, {}};
            QVERIFY2(source.serves(QUrl(QLatin1String(row.request))) == row.isServed, row.request);
        }
    }
};

QTEST_GUILESS_MAIN(MapChannelTest)
#include "MapScriptChannelTest.moc"
