// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "viewer/folders/CardOffer.h"
#include "viewer/folders/FolderMemory.h"
#include "viewer/folders/PlaceKeeper.h"
#include "workers/Latest.h"

#include <QObject>
#include <QSettings>

#include <string>

namespace marvo {

class MainViews;
class MainWindowCommands;
class MediaPlayer;
class MRVMediaList;
class MRVPlayInfo;
class PlaybackController;
class RecentFoldersMenu;

/// The handy ways to folders and recordings: those opened last, what is dropped onto the window, the place
/// where watching was left, and what the menu of a row offers.
class FolderCommands : public QObject
{
    Q_OBJECT
public:
    /// None of the objects is owned; all must outlive this one. There need not be disks.
    FolderCommands(MainViews& views, MainWindowCommands& commands, const MRVMediaList& mediaList,
                   const MediaPlayer& player, MRVPlayInfo& playInfo, PlaybackController& playback,
                   Disks* disks);

    /// Asks for the folder that was open last; without one, or when it is gone, the window stays as at a
    /// first start.
    void reopenLastFolder();

    /// Call it before the list's folder changes,
    void folderWillChange();
    /// and when the new folder's list is shown. False when the folder that was only tried is not there: the
    /// window then shows that nothing is open.
    bool folderListed();
    /// Writes what is remembered.
    void keep() { m_place.keep(); }

Q_SIGNALS:
    void folderWanted(const std::string& path);

private:
    void dropped(const std::string& path);
    void openDropped(const std::string& path, bool isFolder);
    void showRecentFolders();
    void showCard();
    void offerReturn();
    void connectRows();

    MainViews& m_views;
    const MRVMediaList& m_mediaList;
    PlaybackController& m_playback;
    QSettings m_preferences;
    FolderMemory m_memory;
    PlaceKeeper m_place;
    CardOffer m_cardOffer;
    Latest<bool> m_dropLook{this};
    RecentFoldersMenu* m_recent;
    std::string m_playWhenListed; ///< a recording that was dropped
    bool m_onlyTried = false;
};

} // namespace marvo
