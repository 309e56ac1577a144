// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "map/MapTileSource.h"

#include <QSettings>

namespace marvo {
namespace {

constexpr char openStreetMapAddress[] = "https://tile.openstreetmap.org/{z}/{x}/{y}.png";
constexpr char openStreetMapAttribution[] = "© OpenStreetMap contributors";

/// The address with its places filled in, as a request would have it.
QUrl sampleUrl(QString address)
{
    for (const char* place : {"{z}", "{x}", "{y}"})
        address.replace(QLatin1String(place), QStringLiteral("0"));
    return QUrl(address, QUrl::StrictMode);
}

} // namespace

MapTileSource MapTileSource::fromSettings()
{
    const QSettings settings;
    const QString address =
        settings.value(QStringLiteral("map/tileAddress"), QLatin1String(openStreetMapAddress)).toString();
    const QString attribution =
        settings.value(QStringLiteral("map/tileAttribution"), QString::fromUtf8(openStreetMapAttribution))
            .toString();
    return {usableAddress(address), attribution};
}

QString MapTileSource::usableAddress(const QString& text)
{
    QString address = text.trimmed();
    address.replace(QLatin1String("{s}"), QStringLiteral("a"));
    address.remove(QLatin1String("{r}"));
    for (const char* place : {"{z}", "{x}", "{y}"}) {
        if (!address.contains(QLatin1String(place)))
            return {};
    }
    const QUrl url = sampleUrl(address);
    const bool web = url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http");
    return web && url.isValid() && !url.host().isEmpty() ? address : QString();
}

bool MapTileSource::serves(const QUrl& url) const
{
    if (address.isEmpty())
        return false;
    const QUrl own = sampleUrl(address);
    const int standardPort = own.scheme() == QLatin1String("https") ? 443 : 80;
    return url.scheme() == own.scheme() && url.host() == own.host() &&
           url.port(standardPort) == own.port(standardPort);
}

} // namespace marvo
