// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/folders/PlaceKeeper.h"

#include "media/MRVMediaList.h"
#include "playback/MediaPlayer.h"
#include "playback/MRVPlayInfo.h"
#include "playback/PlaybackController.h"

#include <algorithm>

namespace marvo {

namespace {

constexpr double endPosition = 0.998;
constexpr qint64 keepIntervalMs = 5000;

} // namespace

PlaceKeeper::PlaceKeeper(FolderMemory& memory, const MediaPlayer& player, const MRVMediaList& mediaList,
                         MRVPlayInfo& playInfo, PlaybackController& playback)
    : m_memory(memory), m_player(player), m_mediaList(mediaList), m_playInfo(playInfo), m_playback(playback)
{
    connect(&playInfo, &MRVPlayInfo::positionChanged, this, &PlaceKeeper::positionChanged);
    connect(&player, &MediaPlayer::timeChanged, this, &PlaceKeeper::playerTimeChanged);
    connect(&player, &MediaPlayer::failed, this, [this] { m_returningTo.reset(); });
}

/// Not while the rows of the folder before are still there, nor when the list has become another one since.
bool PlaceKeeper::isOfTheFolder() const
{
    const MRVMedia* media =
        m_mediaList.isScanning() ? nullptr : m_mediaList.mediaAtIndex(m_playback.mediaIndex());
    return media && media->path() == m_player.mediaPath();
}

void PlaceKeeper::positionChanged(double positionFraction)
{
    if (!m_player.hasMedia() || m_player.lengthMs() <= 0 || m_returningTo || !isOfTheFolder())
        return;
    m_folder = m_mediaList.directoryPath();
    const auto timeMs =
        static_cast<std::int64_t>(positionFraction * static_cast<double>(m_player.lengthMs()));
    // A recording seen to its end is no place to return to.
    m_place = positionFraction < endPosition ? std::optional(PlaceInRecording{m_player.mediaPath(), timeMs})
                                             : std::nullopt;
    if (!m_sinceKept.isValid() || m_sinceKept.elapsed() >= keepIntervalMs)
        keep();
}

void PlaceKeeper::keep()
{
    if (m_folder.empty())
        return;
    m_memory.setPlace(m_folder, m_place);
    m_sinceKept.start();
}

void PlaceKeeper::leaveFolder()
{
    keep();
    m_returningTo.reset();
}

std::optional<PlaceKeeper::Place> PlaceKeeper::lastPlace() const
{
    const auto place = m_memory.placeIn(m_mediaList.directoryPath());
    if (!place)
        return std::nullopt;
    const auto& medias = m_mediaList.medias();
    const auto found = std::ranges::find(medias, place->recording, &MRVMedia::path);
    if (found == medias.end())
        return std::nullopt;
    return Place{found - medias.begin(), place->timeMs};
}

void PlaceKeeper::returnToLastPlace()
{
    const auto place = lastPlace();
    if (!place || !m_playback.playAtIndex(place->row))
        return;
    m_returningTo = PlaceInRecording{m_mediaList.mediaAtIndex(place->row)->path(), place->timeMs};
}

/// A player can be moved once it has shown that it plays.
void PlaceKeeper::playerTimeChanged()
{
    if (!m_returningTo || !m_player.hasMedia())
        return;
    if (m_player.mediaPath() != m_returningTo->recording) {
        m_returningTo.reset(); // another recording was chosen meanwhile
        return;
    }
    if (!m_player.isPlaying() || m_player.lengthMs() <= 0)
        return;
    const double position =
        static_cast<double>(m_returningTo->timeMs) / static_cast<double>(m_player.lengthMs());
    m_returningTo.reset();
    if (position > 0 && position < endPosition) {
        m_playInfo.setPosition(position);
        m_playback.videoPositionSliderMoved(position);
    }
}

} // namespace marvo
