// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/MapScriptChannel.h"
#include "viewer/MapTileSource.h"

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
    void aLatePageIsToldTheStateOnce();
    void aBusyPageGetsTheLatestOfEachKind();
    void aNewRecordingWithdrawsTheOldOne();
    void aDeadPageCountsNoMoreAndItsSuccessorKnowsAll();
    void anAnswerAfterTheChannelHasGone();
    void statements_data();
    void statements();
    void tileAddresses_data();
    void tileAddresses();
};

void MapChannelTest::aLatePageIsToldTheStateOnce()
{
    Page page;
    MapScriptChannel channel(page.runner());
    channel.newRecording();
    channel.setWay({{1, 2}, {1, 2}, {3, 4}});
    channel.debug(QStringLiteral("GPS Data Count=Zero"));
    channel.setLatLag({126.979361, 37.552057});
    channel.setLatLag({151.2, -33.9});
    channel.setTiles(QStringLiteral("https://t/{z}"), QStringLiteral("©"));
    QCOMPARE(page.ran, QStringList());

    channel.pageReady();
    QCOMPARE(page.ran.size(), 1); // one in flight
    page.answerAll();
    QCOMPARE(page.take(),
             QStringList(
                 {QStringLiteral("marvoMap.setWay([[1.000000,2.000000],[3.000000,4.000000]])"),
                  QStringLiteral("marvoMap.restoreDriven([[126.979361,37.552057],[151.200000,-33.900000]])"),
                  positionB,
                  QStringLiteral("marvoMap.setTiles({address:'https://t/{z}',attribution:'\\u00a9'})")}));
}

void MapChannelTest::aBusyPageGetsTheLatestOfEachKind()
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

void MapChannelTest::aNewRecordingWithdrawsTheOldOne()
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

void MapChannelTest::aDeadPageCountsNoMoreAndItsSuccessorKnowsAll()
{
    Page page;
    MapScriptChannel channel(page.runner());
    channel.pageReady();
    channel.setLatLag({126.979361, 37.552057});
    channel.setLatLag({151.2, -33.9});
    auto lateAnswer = page.unanswered.takeFirst();
    page.take();
    channel.pageLost();
    channel.debug(QStringLiteral("GPS Data Count=Zero"));
    lateAnswer();
    QCOMPARE(page.ran, QStringList());

    channel.pageReady();
    QCOMPARE(page.ran.size(), 1);
    lateAnswer(); // of the dead page: must not let a second statement into flight
    QCOMPARE(page.ran.size(), 1);
    page.answerAll();
    QCOMPARE(page.ran.last(), noData);
    QCOMPARE(page.ran.at(1), positionB);
    QVERIFY(
        page.ran.at(0).startsWith(QLatin1String("marvoMap.restoreDriven([[126.979361,37.552057],[151.2")));
}

void MapChannelTest::anAnswerAfterTheChannelHasGone()
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

void MapChannelTest::statements_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<QString>("expected");
    const double inf = std::numeric_limits<double>::infinity();
    QTest::newRow("rounded to the sixth decimal") << mapStatement::setLatLag({-126.9793607, 37.55205751})
                                                  << QStringLiteral("setLatLag('-126.979361','37.552058')");
    QTest::newRow("message") << mapStatement::debug(QStringLiteral("GPS Data Count=Zero")) << noData;
    QTest::newRow("message that would end its text")
        << mapStatement::debug(QStringLiteral("');x('\\")) << QStringLiteral("MRVDebug('\\');x(\\'\\\\')");
    QTest::newRow("message with line ends")
        << mapStatement::debug(QStringLiteral("a\n\u2028")) << QStringLiteral("MRVDebug('a\\u000a\\u2028')");
    QTest::newRow("way with points that are none")
        << mapStatement::setWay({{inf, 1}, {1, std::numeric_limits<double>::quiet_NaN()}, {1, 1}})
        << QStringLiteral("marvoMap.setWay([[1.000000,1.000000]])");
}

void MapChannelTest::statements()
{
    QFETCH(QString, statement);
    QTEST(statement, "expected");
}

void MapChannelTest::tileAddresses_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("usable");
    QTest::addColumn<QUrl>("request");
    QTest::addColumn<bool>("served");
    const QString osm = QStringLiteral("https://tile.openstreetmap.org/{z}/{x}/{y}.png");
    QTest::newRow("own") << osm << osm << QUrl(QStringLiteral("https://tile.openstreetmap.org:443/1/2/3.png"))
                         << true;
    QTest::newRow("other host") << osm << osm
                                << QUrl(QStringLiteral("https://a.tile.openstreetmap.org/1/2/3.png"))
                                << false;
    QTest::newRow("other scheme") << osm << osm
                                  << QUrl(QStringLiteral("http://tile.openstreetmap.org/1/2/3.png")) << false;
    QTest::newRow("other port") << osm << osm << QUrl(QStringLiteral("https://tile.openstreetmap.org:8443/"))
                                << false;
    QTest::newRow("subdomain and resolution")
        << QStringLiteral(" http://{s}.t:81/{z}/{y}/{x}{r} ") << QStringLiteral("http://a.t:81/{z}/{y}/{x}")
        << QUrl(QStringLiteral("http://a.t:81/1/1/1")) << true;
    const QUrl file(QStringLiteral("file:///etc/passwd"));
    QTest::newRow("none") << QString() << QString() << QUrl() << false;
    QTest::newRow("file") << QStringLiteral("file:///{z}/{x}/{y}") << QString() << file << false;
    QTest::newRow("script") << QStringLiteral("javascript:alert({z}{x}{y})") << QString() << QUrl() << false;
    QTest::newRow("place missing") << QStringLiteral("https://t/{z}/{x}") << QString() << QUrl() << false;
    QTest::newRow("place as host") << QStringLiteral("https:///{x}{y}{z}") << QString() << QUrl() << false;
}

void MapChannelTest::tileAddresses()
{
    QFETCH(QString, text);
    QFETCH(QUrl, request);
    const QString address = MapTileSource::usableAddress(text);
    QTEST(address, "usable");
    QTEST((MapTileSource{address, {}}).serves(request), "served");
}

QTEST_GUILESS_MAIN(MapChannelTest)
#include "map_channel_test.moc"
