// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/panel/DataPanelUpdater.h"

#include "map/MapView.h"
#include "playback/MediaPlayer.h"
#include "playback/MRVPlayInfo.h"
#include "recording/MRVBlackBoxData.h"
#include "viewer/panel/GraphView.h"

#include <QLabel>

#include <utility>

namespace marvo {

namespace {

void setText(QLabel* field, const std::optional<QString>& text)
{
    if (text)
        field->setText(*text);
}

} // namespace

DataPanelUpdater::DataPanelUpdater(const DataPanelFields& fields, GraphView& graphView, MapView& mapWebView,
                                   const MediaPlayer& player, const MRVBlackBoxData& blackBoxData,
                                   const MRVPlayInfo& playInfo)
    : m_fields(fields),
      m_graphView(graphView),
      m_mapWebView(mapWebView),
      m_player(player),
      m_blackBoxData(blackBoxData),
      m_playInfo(playInfo)
{
    connect(&playInfo, &MRVPlayInfo::positionChanged, this, &DataPanelUpdater::refresh);
}

void DataPanelUpdater::refresh()
{
    updateGsensorUIByPlayPositon();
    updateGpsUIByPlayPosition();
}

void DataPanelUpdater::extractionStarted()
{
    m_listsBeingWritten = true;
    m_graphView.clearGraphData();
    m_mapWebView.newRecording();
}

void DataPanelUpdater::extractionFinished()
{
    m_listsBeingWritten = false;
    m_graphView.setGraphData(m_blackBoxData.m_GSensors());
    m_fixes.clear();
    m_fixes.reserve(m_blackBoxData.m_vGpsData().size());
    for (const MRVAviGpsData& entry : m_blackBoxData.m_vGpsData())
        m_fixes.push_back(entry.data());
    m_mapWebView.setWay(wayOf(m_fixes, m_blackBoxData.m_NMEAs()));
}

void DataPanelUpdater::resetDataFields()
{
    show(initialGsensorPanel());
    show(initialGpsPanel());
}

void DataPanelUpdater::updateGsensorUIByPlayPositon()
{
    m_graphView.updateTimePosition(m_player.position());
    if (!m_listsBeingWritten)
        show(gsensorPanelAt(m_playInfo.position(), m_blackBoxData.m_GSensors()));
}

void DataPanelUpdater::updateGpsUIByPlayPosition()
{
    if (hasJumped())
        m_mapWebView.breakWay();
    if (!m_listsBeingWritten)
        show(gpsPanelAt(m_playInfo.position(), m_fixes, m_blackBoxData.m_NMEAs(), m_speedUnit));
}

/// Whether this moment follows from the one shown before by playing, or by a seek.
bool DataPanelUpdater::hasJumped()
{
    constexpr double longestStepMs = 2000; // at the highest speed, when the machine is busy
    const double nowMs = m_playInfo.position() * static_cast<double>(m_player.lengthMs());
    const double stepMs = nowMs - std::exchange(m_shownMs, nowMs);
    return stepMs < 0 || stepMs > longestStepMs;
}

void DataPanelUpdater::show(const GsensorPanel& panel)
{
    setText(m_fields.gsensorXField, panel.gsensorXField);
    setText(m_fields.gsensorYField, panel.gsensorYField);
    setText(m_fields.gsensorZField, panel.gsensorZField);
}

void DataPanelUpdater::show(const GpsPanel& panel)
{
    setText(m_fields.longitudeField, panel.longitudeField);
    setText(m_fields.latitudeField, panel.latitudeField);
    setText(m_fields.speedField, panel.speedField);
    setText(m_fields.hdopField, panel.hdopField);
    setText(m_fields.sateliteField, panel.sateliteField);
    if (panel.mapPosition)
        m_mapWebView.setLatLag(panel.mapPosition->longitude, panel.mapPosition->latitude);
    if (panel.mapDebug)
        m_mapWebView.MRVDebug(*panel.mapDebug);
}

} // namespace marvo
