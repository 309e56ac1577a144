// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "map/MapScriptChannel.h"

#include <QElapsedTimer>
#include <QWidget>

#include <memory>

class QLabel;

namespace marvo {

class MapEngine;

/// A map in the window: the page "map2" or "map2_eng" from the application's resources in an embedded web
/// view.
///
/// The web engine costs memory and start-up time, so it is started when the map is first shown; everything
/// asked for before that is remembered. Where the engine cannot run, a line of text stands in its place and
/// all calls are harmless. The calls may come at any rate; a result is never waited for.
class MapView : public QWidget
{
    Q_OBJECT

public:
    explicit MapView(QWidget* parent = nullptr);
    ~MapView() override;

    /// Which page is shown: one of the application's resources, see mapPageName(). Call it once, before the
    /// map is first shown; without it the page is "map2_eng".
    void loadPage(const QString& pageName);

    /// Centres and marks a position, in signed decimal degrees, and draws the way there: runs
    /// "setLatLag('%lf','%lf')" in the page. The longitude comes first.
    void setLatLag(double longitude, double latitude);

    /// Runs "MRVDebug('...')" in the page, such as with "GPS Data Count=Zero".
    void MRVDebug(const QString& message);

    /// Another recording begins: the car and the ways of the one before go.
    void newRecording();
    /// No line leads to the next position.
    void breakWay();

    /// The map shows the position again, and goes with it, after the person has dragged it elsewhere.
    void follow();

    /// The whole route of the recording, in driving order, drawn faintly below the way driven so far.
    void setWay(const QList<MapPoint>& points);

    /// The page has loaded and answers.
    bool isReady() const { return m_ready; }
    /// What the page runs in, for those who ask it something; null before the map is first shown.
    MapEngine* engine() const { return m_engine.get(); }

Q_SIGNALS:
    void ready();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void startEngine();
    void stopEngine();
    void pageLoaded(bool ok);
    void pageDied();

    QString m_pageName = QStringLiteral("map2_eng");
    std::unique_ptr<MapEngine> m_engine;
    QLabel* m_placeholder;
    MapScriptChannel m_channel;
    QElapsedTimer m_sinceFirstDeath;
    int m_deaths = 0;
    bool m_started = false;
    bool m_ready = false;
};

} // namespace marvo
