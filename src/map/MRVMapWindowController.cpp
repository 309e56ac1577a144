// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "map/MRVMapWindowController.h"

#include "map/MapView.h"
#include "texts/Localisation.h"

#include <QLoggingCategory>
#include <QVBoxLayout>

namespace marvo {
namespace {

Q_LOGGING_CATEGORY(logMap, "marvo.map")

constexpr QSize usualSize(480, 400);
constexpr QSize smallestSize(240, 200);

} // namespace

MRVMapWindowController::MRVMapWindowController(QObject* parent)
    : QObject(parent),
      m_bKorean(mapPageName() == QLatin1StringView("map2") ? 1 : 0),
      m_window(std::make_unique<QWidget>()),
      m_mapWebView(new MapView(m_window.get()))
{
    m_window->setObjectName(QStringLiteral("MRVMapWindowController"));
    m_window->setWindowTitle(localised("map.window_title"));
    m_window->setMinimumSize(smallestSize);
    m_window->resize(usualSize);
    auto* layout = new QVBoxLayout(m_window.get());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_mapWebView);
    windowDidLoad();
}

MRVMapWindowController::~MRVMapWindowController() = default;

void MRVMapWindowController::windowDidLoad()
{
    const QRect frame = m_window->frameGeometry();
    qCInfo(logMap).noquote() << QString::asprintf("{{%d, %d}, {%d, %d}}", frame.x(), frame.y(), frame.width(),
                                                  frame.height());
    m_mapWebView->loadPage(mapPageName());
}

void MRVMapWindowController::moveWindowRightBy(const QRect& rect)
{
    m_window->move(rect.x() + rect.width(), rect.y());
}

void MRVMapWindowController::updateMapLat(double latitude, double longitude)
{
    m_mapWebView->setLatLag(longitude, latitude);
}

void MRVMapWindowController::showWindow(QWidget*)
{
    if (m_window->isMinimized())
        m_window->showNormal();
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

} // namespace marvo
