// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "map/MapStatements.h"

#include <QObject>

#include <functional>

namespace marvo {

/// Sends script statements to the map page.
///
/// A page that is still loading loses statements, and a busy page falls behind a position that changes ten
/// times a second. So the channel runs one statement at a time and keeps only the latest waiting one of
/// each kind. It also remembers what the map shows, for a page that loads late or again. It does not know
/// the web view: the owner passes a runner. Use it on its own thread only.
class MapScriptChannel : public QObject
{
    Q_OBJECT

public:
    /// Runs a statement in the page and calls `done` when the page has finished it, whatever became of it.
    using Runner = std::function<void(const QString& statement, std::function<void()> done)>;

    explicit MapScriptChannel(Runner runner, QObject* parent = nullptr);

    void setTiles(const QString& address, const QString& attribution);
    /// Forgets the position, the ways and the messages of the recording before.
    void newRecording();
    /// Brings the map back to the position; a page that comes later follows anyway.
    void follow();
    void setWay(const QList<MapPoint>& points);
    void setLatLag(const MapPoint& point);
    /// The next position does not follow from the one before: no line is drawn between them.
    void breakWay();
    void debug(const QString& message);

    /// A page has loaded: it is told what the map shows, then whatever changes.
    void pageReady();
    /// The page is gone; answers that it still sends are ignored.
    void pageLost();

private:
    enum class Kind { Tiles, Recording, Follow, Way, Driven, Break, Message, Position };
    struct Pending
    {
        Kind kind;
        QString statement;
    };

    void post(Kind kind, const QString& statement);
    void withdraw(Kind kind);
    void runNext();

    Runner m_runner;
    QList<Pending> m_pending;
    bool m_pageReady = false;
    bool m_inFlight = false;
    quint64 m_pageNumber = 0;

    // What the map shows.
    QString m_tiles;
    QList<MapPoint> m_way;
    QList<MapPoint> m_driven; ///< broken by points that are not finite
    QString m_message;        ///< the statement; empty once a position has come after it
};

} // namespace marvo
