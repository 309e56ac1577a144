// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "viewer/panel/DataPanel.h"

#include <QObject>

#include <vector>

class QLabel;

namespace marvo {

class GraphView;
class MapView;
class MediaPlayer;
class MRVBlackBoxData;
class MRVPlayInfo;

/// The fields of the data panels.
struct DataPanelFields
{
    QLabel* gsensorXField;
    QLabel* gsensorYField;
    QLabel* gsensorZField;
    QLabel* speedField;
    QLabel* longitudeField;
    QLabel* latitudeField;
    QLabel* hdopField;
    QLabel* sateliteField;
};

/// Keeps fields, graph and map in step with the play position. While an extraction runs it leaves the
/// extractor's lists alone.
class DataPanelUpdater : public QObject
{
    Q_OBJECT
public:
    /// The objects are not owned and must outlive this one.
    DataPanelUpdater(const DataPanelFields& fields, GraphView& graphView, MapView& mapWebView,
                     const MediaPlayer& player, const MRVBlackBoxData& blackBoxData,
                     const MRVPlayInfo& playInfo);

    void extractionStarted();
    /// The lists are there: the graph gets its samples and the map the whole route.
    void extractionFinished();
    void resetDataFields();
    /// Shows the moment of the play state again, whether it has changed or not.
    void refresh();
    /// Holds from the next change of the position on.
    void setSpeedUnit(SpeedUnit unit) { m_speedUnit = unit; }

    void updateGsensorUIByPlayPositon();
    void updateGpsUIByPlayPosition();

private:
    void show(const GsensorPanel& panel);
    void show(const GpsPanel& panel);
    bool hasJumped();

    DataPanelFields m_fields;
    GraphView& m_graphView;
    MapView& m_mapWebView;
    const MediaPlayer& m_player;
    const MRVBlackBoxData& m_blackBoxData;
    const MRVPlayInfo& m_playInfo;
    std::vector<_AVI_GPS_DATA_T> m_fixes; ///< the extractor's m_vGpsData, out of their atomic entries
    SpeedUnit m_speedUnit = SpeedUnit::Kilometres;
    double m_shownMs = 0; ///< the moment shown last
    bool m_listsBeingWritten = false;
};

} // namespace marvo
