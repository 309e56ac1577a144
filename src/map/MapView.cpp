// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "map/MapView.h"

#include "map/MapEngine.h"
#include "map/MapTileSource.h"
#include "texts/Localisation.h"

#include <QFileInfo>
#include <QLabel>
#include <QLibraryInfo>
#include <QLoggingCategory>
#include <QTimer>
#include <QVBoxLayout>

#include <unistd.h>

namespace marvo {
namespace {

Q_LOGGING_CATEGORY(logMap, "marvo.map")

const QColor seaColour(0x10, 0x16, 0x1d); // as the page's own background, so that nothing flashes
constexpr int mostDeaths = 3;
constexpr int deathsWithinMs = 60'000;

/// The web engine ends the whole application if it cannot start its process, so this checks first.
bool canRunWebEngine()
{
    const QString named = qEnvironmentVariable("QTWEBENGINEPROCESS_PATH");
    const QString process = named.isEmpty() ? QLibraryInfo::path(QLibraryInfo::LibraryExecutablesPath) +
                                                  QLatin1String("/QtWebEngineProcess")
                                            : named;
    if (!QFileInfo(process).isExecutable()) {
        qCWarning(logMap) << "no map: not executable:" << process;
        return false;
    }
    if (::geteuid() == 0 && !qEnvironmentVariableIntValue("QTWEBENGINE_DISABLE_SANDBOX") &&
        !qEnvironmentVariable("QTWEBENGINE_CHROMIUM_FLAGS").contains(QLatin1String("--no-sandbox"))) {
        qCWarning(logMap) << "no map: the web engine's sandbox does not work for the administrator";
        return false;
    }
    return true;
}

} // namespace

MapView::MapView(QWidget* parent)
    : QWidget(parent),
      m_placeholder(new QLabel(this)),
      m_channel([this](const QString& statement, std::function<void()> done) {
          m_engine->run(statement, [done = std::move(done)](const QVariant&) { done(); });
      })
{
    setObjectName(QStringLiteral("mapWebView"));
    setAccessibleName(localised("map.name"));
    QPalette colours = palette();
    colours.setColor(QPalette::Window, seaColour);
    setPalette(colours);
    setAutoFillBackground(true);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    m_placeholder->setObjectName(QStringLiteral("mapPlaceholder"));
    m_placeholder->setAlignment(Qt::AlignCenter);
    m_placeholder->setWordWrap(true);
    m_placeholder->setMargin(16);
    QPalette textColours = m_placeholder->palette();
    textColours.setColor(QPalette::WindowText, QColor(0x9a, 0xa7, 0xb5));
    m_placeholder->setPalette(textColours);
    layout->addWidget(m_placeholder);
}

MapView::~MapView() { stopEngine(); }

void MapView::loadPage(const QString& pageName) { m_pageName = pageName; }

void MapView::setLatLag(double longitude, double latitude) { m_channel.setLatLag({longitude, latitude}); }

void MapView::MRVDebug(const QString& message) { m_channel.debug(message); }

void MapView::newRecording() { m_channel.newRecording(); }

void MapView::breakWay() { m_channel.breakWay(); }

void MapView::follow() { m_channel.follow(); }

void MapView::setWay(const QList<MapPoint>& points) { m_channel.setWay(points); }

void MapView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (m_started)
        return;
    m_started = true;
    // The window appears first: the engine is slow to start.
    QTimer::singleShot(0, this, &MapView::startEngine);
}

void MapView::startEngine()
{
    const MapTileSource tiles = MapTileSource::fromSettings();
    m_channel.setTiles(tiles.address, tiles.attribution);

    MapEngineSetup setup;
    setup.address = QUrl(QStringLiteral("qrc:/map/%1.htm").arg(m_pageName));
    setup.background = seaColour;
    setup.mayFetch = [tiles](const QUrl& url) { return tiles.serves(url); };
    setup.loaded = [this](bool ok) { pageLoaded(ok); };
    setup.died = [this] { pageDied(); };
    m_engine = canRunWebEngine() ? makeMapEngine(setup, this) : nullptr;
    if (!m_engine) {
        m_placeholder->setText(localised("map.unavailable"));
        return;
    }
    m_engine->view()->setAccessibleName(accessibleName());
    m_placeholder->hide();
    layout()->addWidget(m_engine->view());
    m_engine->load();
}

void MapView::stopEngine()
{
    m_ready = false;
    m_channel.pageLost();
    m_engine.reset();
}

void MapView::pageLoaded(bool ok)
{
    if (!ok) {
        qCWarning(logMap) << "the map page did not load";
        return;
    }
    m_ready = true;
    m_channel.pageReady();
    Q_EMIT ready();
}

void MapView::pageDied()
{
    m_ready = false;
    m_channel.pageLost();
    if (m_deaths == 0 || m_sinceFirstDeath.hasExpired(deathsWithinMs)) {
        m_deaths = 0;
        m_sinceFirstDeath.start();
    }
    // A page that dies again and again would keep the machine busy for nothing.
    if (++m_deaths >= mostDeaths) {
        QTimer::singleShot(0, this, [this] {
            stopEngine();
            m_placeholder->setText(localised("map.unavailable"));
            m_placeholder->show();
        });
        return;
    }
    qCWarning(logMap) << "the map page's process has ended; loading it again";
    QTimer::singleShot(0, m_engine->view(), [this] { m_engine->load(); });
}

} // namespace marvo
