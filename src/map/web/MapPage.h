// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineUrlRequestInterceptor>

#include <functional>
#include <memory>

namespace marvo {

/// Lets the map page reach the application's own resources and the tile server, and nothing else; tells the
/// tile server who asks.
class MapRequestFilter : public QWebEngineUrlRequestInterceptor
{
    Q_OBJECT

public:
    explicit MapRequestFilter(std::function<bool(const QUrl&)> mayFetch, QObject* parent = nullptr);

    void interceptRequest(QWebEngineUrlRequestInfo& info) override;

private:
    const std::function<bool(const QUrl&)> m_mayFetch;
};

/// The one browser profile of all map pages, with the disk cache that keeps the tiles seen before. Held by
/// each page, since a profile must outlive its pages.
std::shared_ptr<QWebEngineProfile> sharedMapProfile();

/// The map page in a locked-down web engine: no navigation, windows, downloads or permissions. A click on a
/// credit opens it in the desktop's browser.
class MapPage : public QWebEnginePage
{
    Q_OBJECT

public:
    MapPage(QWebEngineProfile* profile, const QUrl& address, std::function<bool(const QUrl&)> mayFetch,
            QObject* parent);

    /// Loads the page, also again after its process has died.
    void start();

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
    QWebEnginePage* createWindow(WebWindowType type) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message, int line,
                                  const QString& source) override;

private:
    const QUrl m_address;
};

} // namespace marvo
