// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "viewer/folders/FolderMemory.h"

#include <QElapsedTimer>
#include <QObject>

#include <optional>

namespace marvo {

class MediaPlayer;
class MRVMediaList;
class MRVPlayInfo;
class PlaybackController;

/// Notes where in a recording the user is, and goes back there when asked.
class PlaceKeeper : public QObject
{
    Q_OBJECT
public:
    /// None of the objects is owned; all must outlive this one.
    PlaceKeeper(FolderMemory& memory, const MediaPlayer& player, const MRVMediaList& mediaList,
                MRVPlayInfo& playInfo, PlaybackController& playback);

    /// The row and the time where the list's folder was left; none when that recording is not in the list.
    struct Place
    {
        std::int64_t row;
        std::int64_t timeMs;
    };
    std::optional<Place> lastPlace() const;

    /// Plays the recording from that place on, if it still is in the list.
    void returnToLastPlace();
    /// Writes the place now. Call it before the program ends.
    void keep();
    /// Call it before the list's folder changes: writes the place, and goes back nowhere any more.
    void leaveFolder();

private:
    bool isOfTheFolder() const;
    void positionChanged(double positionFraction);
    void playerTimeChanged();

    FolderMemory& m_memory;
    const MediaPlayer& m_player;
    const MRVMediaList& m_mediaList;
    MRVPlayInfo& m_playInfo;
    PlaybackController& m_playback;

    std::string m_folder; ///< that the place belongs to
    std::optional<PlaceInRecording> m_place;
    std::optional<PlaceInRecording> m_returningTo;
    QElapsedTimer m_sinceKept;
};

} // namespace marvo
