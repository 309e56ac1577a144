// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// The map page in the real web engine, without a network: the only server is the test's own.
#include "map/MapEngine.h"
#include "map/MapSurface.h"
#include "map/MapView.h"
#include "map/MRVMapWindowController.h"
#include "texts/Localisation.h"

#include <QBuffer>
#include <QImage>
#include <QLabel>
#include <QMainWindow>
#include <QSettings>
#include <QShortcut>
#include <QStandardPaths>
#include <QTcpServer>
#include <QTcpSocket>
#include <QtTest>

#include <csignal>
#include <memory>
#include <optional>

using namespace marvo;

namespace {

QStringList mapWarnings;
QtMessageHandler usualHandler = nullptr;

void keepMapMessages(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (qstrcmp(context.category, "marvo.map") == 0 && type == QtWarningMsg)
        mapWarnings.append(message);
    usualHandler(type, context, message);
}

/// Answers every request with the same picture or with an error, and keeps what was asked.
class TileServer : public QTcpServer
{
public:
    explicit TileServer(bool works) : m_works(works)
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket* socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { answer(socket); });
        });
    }
    QString address() const
    {
        return QStringLiteral("http://127.0.0.1:%1/{z}/{x}/{y}.png").arg(serverPort());
    }
    QByteArrayList requests;

private:
    void answer(QTcpSocket* socket)
    {
        QByteArray request = socket->property("request").toByteArray() + socket->readAll();
        socket->setProperty("request", request);
        if (!request.endsWith("\r\n\r\n"))
            return;
        requests.append(request);
        QImage tile(256, 256, QImage::Format_RGB32);
        tile.fill(Qt::red);
        QBuffer png;
        tile.save(&png, "PNG");
        const QByteArray body = m_works ? png.data() : QByteArray();
        socket->write(
            (m_works ? "HTTP/1.1 200 OK" : "HTTP/1.1 503 Busy") +
            QByteArrayLiteral("\r\nContent-Type: image/png\r\nConnection: close\r\nContent-Length: ") +
            QByteArray::number(body.size()) + "\r\n\r\n" + body);
        socket->disconnectFromHost();
    }
    const bool m_works;
};

/// What a script in the page gives. A script must not end in an object: all that it holds would be copied.
QVariant ask(const MapView& map, const QString& script)
{
    auto result = std::make_shared<std::optional<QVariant>>(); // an answer may come after the waiting
    map.engine()->run(script, [result](const QVariant& value) { *result = value; });
    const bool inTime = QTest::qWaitFor([&] { return result->has_value(); }, 10'000);
    return inTime ? **result : QVariant(QStringLiteral("no answer"));
}

bool ask(const MapView& map, const char* script, const QVariant& expected)
{
    QVariant last;
    const bool came =
        QTest::qWaitFor([&] { return (last = ask(map, QString::fromUtf8(script))) == expected; }, 10'000);
    if (!came)
        qWarning() << script << "gives" << last << "not" << expected;
    return came;
}

/// Shows a map and waits for its page.
bool open(MapView& map, const QString& page = QStringLiteral("map2_eng"))
{
    map.loadPage(page);
    map.resize(334, 450);
    map.show();
    return QTest::qWaitFor([&] { return map.isReady(); }, 20'000);
}

// Centre of the map, position of the car, number of points driven in each stretch.
constexpr char centre[] = "(c => c.lng.toFixed(4) + ' ' + c.lat.toFixed(4))(marvo.page.map.getCenter())";
constexpr char car[] =
    "(p => p ? p.lng.toFixed(6) + ' ' + p.lat.toFixed(6) : '')(marvo.page.vehicle.position)";
constexpr char driven[] = "marvo.page.vehicle.driven.getLatLngs().map(s => s.length).join()";
constexpr char notice[] = "(n => n.hidden ? '' : n.textContent)(document.querySelector('.notice'))";

// Whether the base map's tiles have anything drawn at some places.
constexpr char landAt[] =
    R"([[127.0, 37.28], [125.9, 37.0], [125.6, 36.5], [125.72, 38.1]].map(([lng, lat]) => {
    const view = document.getElementById('map').getBoundingClientRect();
    const at = marvo.page.map.latLngToContainerPoint([lat, lng]).add([view.left, view.top]);
    for (const tile of document.querySelectorAll('.leaflet-base-pane canvas')) {
        const box = tile.getBoundingClientRect();
        const x = Math.floor((at.x - box.left) * tile.width / box.width);
        const y = Math.floor((at.y - box.top) * tile.height / box.height);
        if (x >= 0 && y >= 0 && x < tile.width && y < tile.height)
            return tile.getContext('2d').getImageData(x, y, 1, 1).data[3] > 128 ? 'land' : 'sea';
    }
    return 'none';
}).join())";

} // namespace

class MapPageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { usualHandler = qInstallMessageHandler(keepMapMessages); } // over the test's own
    void cleanupTestCase() { qInstallMessageHandler(usualHandler); }
    void init()
    {
        QSettings().setValue(QStringLiteral("map/tileAddress"), QString());
        mapWarnings.clear();
    }

    void bothPagesLoad()
    {
        const std::tuple<QString, const char*, const char*> rows[] = {
            {QStringLiteral("map2_eng"), "Seoul", "No GPS data in this recording"},
            {QStringLiteral("map2"), "서울", "이 녹화에는 GPS 데이터가 없습니다"},
        };
        for (const auto& [page, seoul, noData] : rows) {
            MapView map;
            QVERIFY(open(map, page));
            map.setLatLag(126.9778, 37.5683);
            // The base map comes after the page itself: the place names say that all of its data was read.
            QVERIFY(
                ask(map, "document.querySelector('.readout-place').textContent", QString::fromUtf8(seoul)));
            ask(map, QStringLiteral("void marvo.page.map.setView([37.3, 126.3], 8)"));
            // Suwon, two in the Yellow Sea, Haeju
            QVERIFY(ask(map, landAt, QStringLiteral("land,sea,sea,land")));
            map.MRVDebug(QStringLiteral("GPS Data Count=Zero"));
            QVERIFY(ask(map, notice, QString::fromUtf8(noData)));
            QCOMPARE(mapWarnings, QStringList());
        }
    }

    void positionsBeforeTheFirstShowAndOfADeadPageAreKept()
    {
        MapView map;
        map.newRecording();
        map.setWay({{126.97, 37.55}, {126.975, 37.551}, {126.98, 37.552}});
        for (int i = 0; i <= 10; ++i)
            map.setLatLag(126.97 + i * 0.001, 37.55);
        QVERIFY(map.engine() == nullptr); // no engine for a map that nobody has opened
        QVERIFY(open(map));
        QVERIFY(ask(map, car, QStringLiteral("126.980000 37.550000")));
        QVERIFY(ask(map, driven, QStringLiteral("11")));
        QVERIFY(
            ask(map, "marvo.page.vehicle.way.getLatLngs().map(s => s.length).join()", QStringLiteral("3")));
        QVERIFY(ask(map, "Math.round(marvo.page.vehicle.heading)", 90));

        QVERIFY(map.engine()->processId() > 0);
        ::kill(static_cast<pid_t>(map.engine()->processId()), SIGKILL);
        QTRY_VERIFY(!map.isReady());
        map.setLatLag(126.981, 37.55);
        QTRY_VERIFY_WITH_TIMEOUT(map.isReady(), 20'000);
        QVERIFY(ask(map, driven, QStringLiteral("12")));
        QVERIFY(ask(map, car, QStringLiteral("126.981000 37.550000")));
    }

    void positionsMoveTheCarAndTheMap()
    {
        MapView map;
        QVERIFY(open(map));
        map.engine()->run(QStringLiteral("setLatLag('126.979361','37.552057')"), [](const QVariant&) {});
        QVERIFY(ask(map, car, QStringLiteral("126.979361 37.552057")));
        QVERIFY(ask(map, centre, QStringLiteral("126.9794 37.5521")));

        for (const char* ignored :
             {"setLatLag('nan','37')", "setLatLag('','')", "setLatLag('126.9','91')", "setLatLag('181','0')",
              "setLatLag('0x10','1')", "setLatLag('126,9','37,5')", "setLatLag()", "setLatLag('126.9')",
              "setLatLag('Infinity','1')", "setLatLag(null, {})", "setLatLag('1;2','3')"}) {
            QVERIFY2(ask(map, QString::fromLatin1(ignored)) != QLatin1String("no answer"), ignored);
            QVERIFY2(ask(map, car, QStringLiteral("126.979361 37.552057")), ignored);
        }
        QVERIFY(ask(map, driven, QStringLiteral("1")));

        const auto run = [&map](const char* script) { ask(map, QString::fromLatin1(script)); };
        run("setLatLag('126.979361','37.553057')"); // 111 m north
        QVERIFY(ask(map, "Math.round(marvo.page.vehicle.heading)", 0));
        run("setLatLag('126.979361','37.553057')"); // standing
        QVERIFY(ask(map, driven, QStringLiteral("2")));
        run("setLatLag('126.979361','37.573057')"); // 2.2 km: out of a tunnel; the way does not cut the
                                                    // corner
        QVERIFY(ask(map, driven, QStringLiteral("2,1")));
        run("marvoMap.breakDriven()"); // a seek
        run("setLatLag('126.979361','37.574057')");
        QVERIFY(ask(map, driven, QStringLiteral("2,1,1")));
        run("setLatLag('126.979361','37.573057')");
        run("setLatLag('0.000000','0.000000')"); // a receiver without a fix
        QVERIFY(ask(map, car, QStringLiteral("126.979361 37.573057")));
        QVERIFY(ask(map, notice, QStringLiteral("No GPS signal")));
        QVERIFY(ask(map, "document.querySelector('.car').classList.contains('lost')", true));
        run("setLatLag('-70.5','-33.9')"); // the other hemispheres
        QVERIFY(ask(map, centre, QStringLiteral("-70.5000 -33.9000")));
        QVERIFY(ask(map, notice, QString()));
        QVERIFY(ask(map, "document.querySelector('.readout-position').textContent",
                    QStringLiteral("33.90000° S\u200270.50000° W")));
        run("setLatLag('180','85.5')");
        QVERIFY(ask(map, car, QStringLiteral("180.000000 85.500000")));

        map.newRecording();
        QVERIFY(ask(map, driven, QString()));
        QVERIFY(ask(map, car, QString()));
        QCOMPARE(mapWarnings, QStringList());
    }

    void draggingStopsFollowing()
    {
        MapView map;
        map.setLatLag(126.98, 37.55);
        QVERIFY(open(map));
        QVERIFY(ask(map, centre, QStringLiteral("126.9800 37.5500")));
        QWidget* web = map.engine()->view()->focusProxy();
        QVERIFY(web);
        QVERIFY(QTest::qWaitForWindowExposed(&map));
        const QPoint start(160, 300);
        QTest::mousePress(web, Qt::LeftButton, {}, start);
        for (int step = 1; step <= 8; ++step)
            QTest::mouseMove(web, start - QPoint(0, 12 * step), 15);
        QTest::mouseRelease(web, Qt::LeftButton, {}, start - QPoint(0, 96), 15);
        QVERIFY(ask(map, "document.querySelector('.follow').getAttribute('aria-pressed')",
                    QStringLiteral("false")));
        QVariant dragged; // the page draws the steps one by one, and later
        const auto rests = [&] {
            const QVariant before = std::exchange(dragged, ask(map, QString::fromLatin1(centre)));
            return before == dragged && dragged != QStringLiteral("126.9800 37.5500");
        };
        QTRY_VERIFY(rests());
        map.setLatLag(126.981, 37.55);
        QVERIFY(ask(map, car, QStringLiteral("126.981000 37.550000")));
        QCOMPARE(ask(map, QString::fromLatin1(centre)), dragged);

        QTest::mouseClick(web, Qt::LeftButton, {}, QPoint(308, 101)); // the follow button
        QVERIFY(ask(map, centre, QStringLiteral("126.9810 37.5500")));
        ask(map, QStringLiteral("marvo.page.follow(false)"));
        map.newRecording(); // it is followed again, at a zoom that shows all of its way
        map.setWay({{126.980, 37.55}, {126.983, 37.55}});
        map.setLatLag(126.983, 37.55);
        QVERIFY(ask(map, centre, QStringLiteral("126.9830 37.5500")));
        QVERIFY(ask(map, "marvo.page.map.getBounds().contains(marvo.page.vehicle.way.getBounds())", true));
        QVERIFY(ask(map, "marvo.page.map.getZoom() >= 14", true));
    }

    void keysStayWithTheWindow()
    {
        QMainWindow window;
        auto* map = new MapView(&window);
        window.setCentralWidget(map);
        window.resize(400, 400);
        int pressed = 0;
        auto* shortcut = new QShortcut(Qt::Key_Space, &window);
        connect(shortcut, &QShortcut::activated, this, [&pressed] { ++pressed; });
        window.show();
        QVERIFY(QTest::qWaitFor([&] { return map->isReady(); }, 20'000));
        QWidget* web = map->engine()->view()->focusProxy();
        window.activateWindow();
        QTRY_VERIFY(window.isActiveWindow());
        QTest::mouseClick(web, Qt::LeftButton, {}, QPoint(200, 250));
        QTest::qWait(100);
        QWidget* focus = QApplication::focusWidget();
        QTest::keyClick(focus ? focus : static_cast<QWidget*>(&window), Qt::Key_Space);
        QTRY_COMPARE(pressed, 1);
    }

    void messages()
    {
        MapView map;
        QVERIFY(open(map));
        ask(map, QStringLiteral("window.heard = []; console.log = text => heard.push(text); true"));
        const QString hostile = QStringLiteral("');document.title='x';('\\\n\u2028</script> 한글 \U0001F697");
        map.MRVDebug(hostile);
        QVERIFY(ask(map, "heard[0]", QString(QStringLiteral("MRVDebug: ") + hostile)));
        QVERIFY(ask(map, "document.title", QStringLiteral("Map")));
        QVERIFY(ask(map, notice, QString())); // for developers only
        map.MRVDebug(QStringLiteral("GPS Data Count=Zero"));
        QVERIFY(ask(map, notice, QStringLiteral("No GPS data in this recording")));
        map.setLatLag(1, 1);
        QVERIFY(ask(map, notice, QString()));
        QCOMPARE(mapWarnings, QStringList());
    }

    void theWebStaysOut()
    {
        TileServer tiles(true);
        TileServer other(true);
        QSettings().setValue(QStringLiteral("map/tileAddress"), tiles.address());
        MapView map;
        QVERIFY(open(map));
        QTRY_VERIFY(!tiles.requests.isEmpty());
        ask(map, QStringLiteral(R"(window.seen = [];
        document.addEventListener('securitypolicyviolation', e => seen.push(e.effectiveDirective));
        new Image().src = 'http://127.0.0.1:%1/picture.png';
        fetch('http://127.0.0.1:%2/').catch(() => {});
        const inline = document.createElement('script'); inline.textContent = 'window.inlineRan = true';
        document.head.append(inline);
        const frame = document.createElement('iframe'); frame.src = 'http://127.0.0.1:%1/'; document.body.append(frame);
        window.open('http://127.0.0.1:%1/'); true)")
                     .arg(other.serverPort())
                     .arg(tiles.serverPort()));
        QVERIFY(
            ask(map, "seen.sort().join()", QStringLiteral("connect-src,frame-src,img-src,script-src-elem")));
        QVERIFY(ask(map, "window.inlineRan === undefined", true));
        ask(map, QStringLiteral("location.href = 'http://127.0.0.1:%1/'; true").arg(other.serverPort()));
        QTest::qWait(200);
        QVERIFY(ask(map, "location.href", QStringLiteral("qrc:/map/map2_eng.htm")));
        QCOMPARE(other.requests, QByteArrayList());
        for (const QByteArray& request : std::as_const(tiles.requests))
            QVERIFY2(request.contains(".png HTTP"), request);
    }

    void tilesLieOverTheBaseMapWhileTheyCome()
    {
        for (const bool works : {true, false}) {
            TileServer server(works);
            QSettings().setValue(QStringLiteral("map/tileAddress"), server.address());
            MapView map;
            map.setLatLag(126.979361, 37.552057);
            QVERIFY(open(map));
            // Wider where there are no streets to read.
            QVERIFY(ask(map, "marvo.page.map.getZoom()", works ? 15 : 12));
            QVERIFY(ask(map,
                        "[...document.querySelectorAll('.street-tiles img.leaflet-tile-loaded')].filter("
                        "i => i.style.visibility !== 'hidden').length > 3",
                        works));
            QVERIFY(ask(map,
                        "document.querySelector('.leaflet-control-attribution').textContent.includes("
                        "'OpenStreetMap')",
                        works));
            QVERIFY(!server.requests.isEmpty());
            for (const QByteArray& request : std::as_const(server.requests)) {
                // Nothing of a place that is not shown.
                QVERIFY2(!works || request.startsWith("GET /15/"), request);
                QVERIFY2(request.contains("\r\nUser-Agent: MARVO/"), request);
                QVERIFY2(request.contains("\r\nReferer: http://marvo.invalid/\r\n"), request);
            }
        }
    }

    void withoutAnEngineTheWindowLives()
    {
        const QByteArray before = qgetenv("QTWEBENGINEPROCESS_PATH");
        qputenv("QTWEBENGINEPROCESS_PATH", "/nonexistent/QtWebEngineProcess");
        MapView map;
        map.resize(334, 450);
        map.show();
        QTRY_COMPARE(map.findChild<QLabel*>(QStringLiteral("mapPlaceholder"))->text(),
                     QStringLiteral("The map cannot be shown on this computer."));
        map.newRecording();
        map.setLatLag(1, 2);
        map.MRVDebug(QStringLiteral("x"));
        QVERIFY(map.engine() == nullptr);
        before.isEmpty() ? qunsetenv("QTWEBENGINEPROCESS_PATH") : qputenv("QTWEBENGINEPROCESS_PATH", before);
    }

    void mapWindow()
    {
        MRVMapWindowController controller;
        controller.updateMapLat(-33.9, 151.2);
        controller.showWindow();
        controller.moveWindowRightBy(QRect(100, 200, 800, 600));
        QTRY_COMPARE(controller.window()->frameGeometry().topLeft(), QPoint(900, 200));
        QCOMPARE(controller.window()->height(), 400);
        QTRY_VERIFY_WITH_TIMEOUT(controller.mapWebView()->isReady(), 20'000);
        QVERIFY(ask(*controller.mapWebView(), car, QStringLiteral("151.200000 -33.900000")));
        QCOMPARE(controller.mapWebView()->geometry(), controller.window()->rect());
    }
};

int main(int argc, char** argv)
{
    prepareForMaps();
    QStandardPaths::setTestModeEnabled(true);
    QApplication application(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("marvo-tests"));
    QCoreApplication::setApplicationName(QStringLiteral("map_page_test"));
    installLanguage(InterfaceLanguage::English);
    MapPageTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "MapPageTest.moc"
