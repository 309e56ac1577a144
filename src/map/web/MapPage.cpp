// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "map/web/MapPage.h"

#include <QDesktopServices>
#include <QLoggingCategory>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInfo>

#include <utility>

namespace marvo {
namespace {

Q_LOGGING_CATEGORY(logMap, "marvo.map")

constexpr int cacheBytes = 64 * 1024 * 1024;

} // namespace

MapRequestFilter::MapRequestFilter(std::function<bool(const QUrl&)> mayFetch, QObject* parent)
    : QWebEngineUrlRequestInterceptor(parent), m_mayFetch(std::move(mayFetch))
{}

void MapRequestFilter::interceptRequest(QWebEngineUrlRequestInfo& info)
{
    const QUrl url = info.requestUrl();
    if (url.scheme() == QLatin1String("qrc") || url.scheme() == QLatin1String("data"))
        return;
    const bool isTile = m_mayFetch(url) && info.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeImage;
    if (!isTile) {
        qCWarning(logMap) << "request blocked:" << url.toDisplayString();
        info.block(true);
        return;
    }
    // Public tile servers refuse requests without a referrer. There is no web site to name. The engine
    // cancels a request whose referrer is more than an origin or has a safer scheme than the request.
    info.setHttpHeader(QByteArrayLiteral("Referer"), url.scheme().toLatin1() + "://marvo.invalid/");
}

std::shared_ptr<QWebEngineProfile> sharedMapProfile()
{
    static std::weak_ptr<QWebEngineProfile> shared;
    if (auto profile = shared.lock())
        return profile;
    auto profile = std::make_shared<QWebEngineProfile>(QStringLiteral("map"));
    profile->setHttpUserAgent(
        QStringLiteral("MARVO/" MARVO_VERSION " (dash-camera companion for the desktop)"));
    profile->setHttpCacheType(QWebEngineProfile::DiskHttpCache);
    profile->setHttpCacheMaximumSize(cacheBytes);
    profile->setPersistentCookiesPolicy(QWebEngineProfile::NoPersistentCookies);
    profile->setSpellCheckEnabled(false);
    shared = profile;
    return profile;
}

MapPage::MapPage(QWebEngineProfile* profile, const QUrl& address, std::function<bool(const QUrl&)> mayFetch,
                 QObject* parent)
    : QWebEnginePage(profile, parent), m_address(address)
{
    setUrlRequestInterceptor(new MapRequestFilter(std::move(mayFetch), this));
    for (const auto attribute :
         {QWebEngineSettings::PluginsEnabled, QWebEngineSettings::PdfViewerEnabled,
          QWebEngineSettings::LocalStorageEnabled, QWebEngineSettings::WebGLEnabled,
          QWebEngineSettings::ErrorPageEnabled, QWebEngineSettings::FullScreenSupportEnabled,
          QWebEngineSettings::JavascriptCanOpenWindows, QWebEngineSettings::JavascriptCanAccessClipboard,
          QWebEngineSettings::FocusOnNavigationEnabled, QWebEngineSettings::ShowScrollBars,
          QWebEngineSettings::AutoLoadIconsForPage})
        settings()->setAttribute(attribute, false);
}

void MapPage::start() { load(m_address); }

bool MapPage::acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame)
{
    if (isMainFrame && url == m_address)
        return true;
    if (type == NavigationTypeLinkClicked && url.scheme() == QLatin1String("https"))
        QDesktopServices::openUrl(url);
    return false;
}

QWebEnginePage* MapPage::createWindow(WebWindowType) { return nullptr; }

void MapPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message, int line,
                                       const QString& source)
{
    if (level == InfoMessageLevel)
        qCDebug(logMap).noquote() << message;
    else
        qCWarning(logMap).noquote() << source << line << message;
}

} // namespace marvo
