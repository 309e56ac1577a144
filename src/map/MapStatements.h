// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

namespace marvo {

/// A place on the map in signed decimal degrees: east and north are positive.
struct MapPoint
{
    double longitude = 0;
    double latitude = 0;
    friend bool operator==(const MapPoint&, const MapPoint&) = default;
};

/// The script statements that the map page understands, as text to run in the page's global scope.
namespace mapStatement {

/// "setLatLag('126.979361','37.552057')": the longitude first, six decimals each, whatever the desktop's
/// locale.
QString setLatLag(const MapPoint& point);

/// "MRVDebug('...')": any text; what could end or leave the quoted text is escaped.
QString debug(const QString& message);

/// The whole route of the recording in driving order; it breaks in the page at gaps of more than 1 km.
/// Points that are not finite are left out, and points that repeat the one before them.
QString setWay(const QList<MapPoint>& points);

/// The car goes on elsewhere: no line leads there.
QString breakDriven();

/// The way driven so far, for a page that had to be loaded again; it breaks at a point that is not finite.
QString restoreDriven(const QList<MapPoint>& points);

/// Another recording begins: the page forgets the car and its ways.
QString newRecording();

/// The map shows the car again, and goes with it, after the person has dragged it elsewhere.
QString follow();

/// Where street tiles come from: an address with {z}, {x} and {y}, and the credit to show with them.
QString setTiles(const QString& address, const QString& attribution);

} // namespace mapStatement
} // namespace marvo
