// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "map/web/WebMapEngine.h"

#include "map/web/MapPage.h"

#include <QQuickWindow>
#include <QWebEngineView>

#include <utility>

namespace marvo {

WebMapEngine::WebMapEngine(const MapEngineSetup& setup, QWidget* parent)
    : m_profile(sharedMapProfile()),
      m_view(std::make_unique<QWebEngineView>(parent)),
      m_page(new MapPage(m_profile.get(), setup.address, setup.mayFetch, m_view.get()))
{
    m_view->setAcceptDrops(false); // a folder dropped here is for the window
    m_view->setContextMenuPolicy(Qt::NoContextMenu);
    // The keys belong to the player, also after a click on the map.
    m_view->setFocusPolicy(Qt::NoFocus);
    m_page->setBackgroundColor(setup.background);
    m_view->setPage(m_page);
    QObject::connect(m_page, &QWebEnginePage::loadFinished, m_view.get(), setup.loaded);
    QObject::connect(m_page, &QWebEnginePage::renderProcessTerminated, m_view.get(), setup.died);
}

// The page goes with its view, and both before their profile.
WebMapEngine::~WebMapEngine() = default;

QWidget* WebMapEngine::view() const { return m_view.get(); }

void WebMapEngine::load() { m_page->start(); }

void WebMapEngine::run(const QString& statement, std::function<void(const QVariant& value)> done)
{
    m_page->runJavaScript(statement, std::move(done));
}

qint64 WebMapEngine::processId() const { return m_page->renderProcessPid(); }

void WebMapEngineMaker::drawWithoutOpenGl()
{
    QQuickWindow::setSceneGraphBackend(QStringLiteral("software"));
}

std::unique_ptr<MapEngine> WebMapEngineMaker::make(const MapEngineSetup& setup, QWidget* parent)
{
    return std::make_unique<WebMapEngine>(setup, parent);
}

} // namespace marvo
