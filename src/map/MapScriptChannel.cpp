// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "map/MapScriptChannel.h"

#include <QPointer>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace marvo {
namespace {

constexpr qsizetype mostDrivenPoints = 20'000; // as many as the page itself keeps

} // namespace

MapScriptChannel::MapScriptChannel(Runner runner, QObject* parent)
    : QObject(parent), m_runner(std::move(runner))
{}

void MapScriptChannel::setTiles(const QString& address, const QString& attribution)
{
    m_tiles = mapStatement::setTiles(address, attribution);
    post(Kind::Tiles, m_tiles);
}

void MapScriptChannel::newRecording()
{
    m_way.clear();
    m_driven.clear();
    m_message.clear();
    for (const Kind kind : {Kind::Way, Kind::Driven, Kind::Break, Kind::Message, Kind::Position})
        withdraw(kind);
    post(Kind::Recording, mapStatement::newRecording());
}

void MapScriptChannel::follow() { post(Kind::Follow, mapStatement::follow()); }

void MapScriptChannel::setWay(const QList<MapPoint>& points)
{
    m_way = points;
    post(Kind::Way, mapStatement::setWay(points));
}

void MapScriptChannel::setLatLag(const MapPoint& point)
{
    m_message.clear();
    if (m_driven.isEmpty() || m_driven.constLast() != point) {
        if (m_driven.size() >= mostDrivenPoints)
            m_driven.removeFirst();
        m_driven.append(point);
    }
    post(Kind::Position, mapStatement::setLatLag(point));
}

void MapScriptChannel::breakWay()
{
    if (m_driven.isEmpty() || std::isnan(m_driven.constLast().longitude))
        return;
    m_driven.append({std::numeric_limits<double>::quiet_NaN(), 0});
    post(Kind::Break, mapStatement::breakDriven());
}

void MapScriptChannel::debug(const QString& message)
{
    m_message = mapStatement::debug(message);
    post(Kind::Message, m_message);
}

void MapScriptChannel::pageReady()
{
    pageLost();
    m_pageReady = true;
    if (!m_way.isEmpty())
        m_pending.append({Kind::Way, mapStatement::setWay(m_way)});
    if (m_driven.size() > 1)
        m_pending.append({Kind::Driven, mapStatement::restoreDriven(m_driven)});
    const auto last = std::find_if(m_driven.crbegin(), m_driven.crend(),
                                   [](const MapPoint& point) { return !std::isnan(point.longitude); });
    if (last != m_driven.crend())
        m_pending.append({Kind::Position, mapStatement::setLatLag(*last)});
    if (!m_message.isEmpty())
        m_pending.append({Kind::Message, m_message});
    // Last, so that no tiles are asked for of a place that is left at once.
    if (!m_tiles.isEmpty())
        m_pending.append({Kind::Tiles, m_tiles});
    runNext();
}

void MapScriptChannel::pageLost()
{
    ++m_pageNumber;
    m_pageReady = false;
    m_inFlight = false;
    m_pending.clear();
}

void MapScriptChannel::post(Kind kind, const QString& statement)
{
    if (!m_pageReady)
        return; // the next page is told what the map shows
    withdraw(kind);
    m_pending.append({kind, statement});
    runNext();
}

void MapScriptChannel::withdraw(Kind kind)
{
    m_pending.removeIf([kind](const Pending& pending) { return pending.kind == kind; });
}

void MapScriptChannel::runNext()
{
    if (m_inFlight || m_pending.isEmpty())
        return;
    m_inFlight = true;
    const QString statement = m_pending.takeFirst().statement;
    m_runner(statement, [self = QPointer(this), page = m_pageNumber] {
        // The answer may come after the channel has gone, or from a page that has.
        if (!self || self->m_pageNumber != page)
            return;
        self->m_inFlight = false;
        self->runNext();
    });
}

} // namespace marvo
