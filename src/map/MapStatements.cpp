// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "map/MapStatements.h"

#include "support/FixedText.h"

#include <QStringList>

#include <cmath>
#include <optional>

namespace marvo::mapStatement {
namespace {

/// A script literal in single quotes. Everything outside printable ASCII is written as an escape, so that no
/// line end, quote or lone surrogate can end the literal or be lost on the way to the page.
QString quoted(const QString& text)
{
    QString literal = QStringLiteral("'");
    for (const QChar c : text) {
        if (c == u'\'' || c == u'\\')
            literal += u'\\';
        if (c.unicode() >= 0x20 && c.unicode() < 0x7f)
            literal += c;
        else
            literal += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
    }
    return literal + u'\'';
}

enum class NotFinite { LeftOut, Break };

QString pointList(const QList<MapPoint>& points, NotFinite notFinite = NotFinite::LeftOut)
{
    QStringList list;
    std::optional<MapPoint> last;
    for (const MapPoint& point : points) {
        const bool isFinite = std::isfinite(point.longitude) && std::isfinite(point.latitude);
        if (last == point || (!isFinite && (notFinite == NotFinite::LeftOut || !last)))
            continue;
        list += isFinite ? QString::asprintf("[%.6f,%.6f]", point.longitude, point.latitude)
                         : QStringLiteral("null");
        last = isFinite ? std::optional(point) : std::nullopt;
    }
    return u'[' + list.join(u',') + u']';
}

} // namespace

QString setLatLag(const MapPoint& point)
{
    return QStringLiteral("setLatLag('%1','%2')")
        .arg(QString::fromStdString(fixedText(point.longitude, 6)),
             QString::fromStdString(fixedText(point.latitude, 6)));
}

QString debug(const QString& message) { return QStringLiteral("MRVDebug(%1)").arg(quoted(message)); }

QString setWay(const QList<MapPoint>& points)
{
    return QStringLiteral("marvoMap.setWay(%1)").arg(pointList(points));
}

QString restoreDriven(const QList<MapPoint>& points)
{
    return QStringLiteral("marvoMap.restoreDriven(%1)").arg(pointList(points, NotFinite::Break));
}

QString breakDriven() { return QStringLiteral("marvoMap.breakDriven()"); }

QString newRecording() { return QStringLiteral("marvoMap.newRecording()"); }

QString follow() { return QStringLiteral("marvoMap.follow()"); }

QString setTiles(const QString& address, const QString& attribution)
{
    return QStringLiteral("marvoMap.setTiles({address:%1,attribution:%2})")
        .arg(quoted(address), quoted(attribution));
}

} // namespace marvo::mapStatement
