// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/FolderCommands.h"

#include "controls/MessageSheet.h"
#include "media/MRVMediaList.h"
#include "platform/FileManager.h"
#include "playback/PlaybackController.h"
#include "texts/DisplayText.h"
#include "texts/Localisation.h"
#include "viewer/CustomWindow.h"
#include "viewer/folders/RecentFoldersMenu.h"
#include "viewer/list/ListEmptyState.h"
#include "viewer/list/RecordingFilterBar.h"
#include "viewer/list/RecordingListView.h"
#include "viewer/list/ReturnStrip.h"
#include "viewer/MainViews.h"
#include "viewer/MainWindowCommands.h"
#include "viewer/SidePanel.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>

#include <algorithm>
#include <filesystem>
#include <utility>

namespace marvo {

namespace {

constexpr std::int64_t leastTimeToReturnMs = 1000;

} // namespace

FolderCommands::FolderCommands(MainViews& views, MainWindowCommands& commands, const MRVMediaList& mediaList,
                               const MediaPlayer& player, MRVPlayInfo& playInfo, PlaybackController& playback,
                               Disks* disks)
    : m_views(views),
      m_mediaList(mediaList),
      m_playback(playback),
      m_memory(m_preferences),
      m_place(m_memory, player, mediaList, playInfo, playback),
      m_cardOffer(disks),
      m_recent(new RecentFoldersMenu(m_memory, commands.menu()))
{
    commands.insertRecentFolders(*m_recent);
    connect(m_recent, &RecentFoldersMenu::folderChosen, this, &FolderCommands::folderWanted);
    connect(m_recent, &RecentFoldersMenu::clearRequested, this, [this] {
        m_memory.clear();
        showRecentFolders();
    });
    connect(&views.window, &CustomWindow::dropped, this, &FolderCommands::dropped);
    connect(commands.action(Command::FindRecording), &QAction::triggered, this, [this, &commands] {
        if (m_mediaList.count() == 0)
            return;
        m_views.window.leaveFullscreen();
        commands.action(Command::ClickMediaListViewButton)->trigger();
        m_views.bodyRightBox->filterBar()->beginSearch();
    });
    connectRows();
    showRecentFolders();
    connect(&m_cardOffer, &CardOffer::cardChanged, this, &FolderCommands::showCard);
    connect(&m_views.bodyRightBox->mediaListTableView()->emptyState(), &ListEmptyState::cardRequested, this,
            [this] {
                if (const auto& card = m_cardOffer.card())
                    Q_EMIT folderWanted(std::string(card->path));
            });
    showCard();
    m_cardOffer.look();
}

void FolderCommands::connectRows()
{
    RecordingListView* list = m_views.bodyRightBox->mediaListTableView();
    connect(&list->emptyState(), &ListEmptyState::recentRequested, this, [this](int index) {
        const auto& folders = m_memory.folders();
        if (index >= 0 && index < std::ssize(folders))
            Q_EMIT folderWanted(std::string(folders[static_cast<std::size_t>(index)].path));
    });
    connect(list, &RecordingListView::showInFolderRequested, this, [this](std::int64_t row) {
        const MRVMedia* media = m_mediaList.mediaAtIndex(row);
        if (!media)
            return;
        showInFileManager(media->path(), this, [this, path = displayText(media->path())] {
            showMessageSheet(&m_views.window, QStringLiteral("MARVO"),
                             localised("folders.cannotShowInFolder").arg(path));
        });
    });
    connect(list, &RecordingListView::copyPathRequested, this, [this](std::int64_t row) {
        if (const MRVMedia* media = m_mediaList.mediaAtIndex(row))
            QGuiApplication::clipboard()->setText(displayText(media->path()));
    });
    ReturnStrip* strip = m_views.bodyRightBox->returnStrip();
    connect(strip, &ReturnStrip::accepted, this, [this] { m_place.returnToLastPlace(); });
    connect(&m_playback, &PlaybackController::mediaIndexChanged, strip, &QWidget::hide);
}

void FolderCommands::reopenLastFolder()
{
    if (m_memory.folders().empty())
        return;
    const std::string path = m_memory.folders().front().path;
    Q_EMIT folderWanted(path);
    m_onlyTried = true;
}

/// What was dropped may lie on a medium that does not answer, so a worker asks what it is.
void FolderCommands::dropped(const std::string& path)
{
    m_dropLook.start(
        [path](const LatestRun&) {
            std::error_code failed;
            return std::filesystem::is_directory(path, failed);
        },
        [this, path](bool isFolder) { openDropped(path, isFolder); });
}

void FolderCommands::openDropped(const std::string& path, bool isFolder)
{
    if (isFolder) {
        Q_EMIT folderWanted(path);
        return;
    }
    Q_EMIT folderWanted(std::filesystem::path(path).parent_path().string());
    m_playWhenListed = path;
}

void FolderCommands::folderWillChange()
{
    m_dropLook.abandon(); // another folder has overtaken it
    m_place.leaveFolder();
    m_onlyTried = false;
    m_playWhenListed.clear();
    m_views.bodyRightBox->filterBar()->clear();
    m_views.bodyRightBox->returnStrip()->hide();
}

bool FolderCommands::folderListed()
{
    const bool found = m_mediaList.count() > 0;
    m_views.bodyRightBox->filterBar()->setVisible(found);
    if (found) {
        m_memory.opened(m_mediaList.directoryPath());
        showRecentFolders();
    }
    const bool gone = std::exchange(m_onlyTried, false) && !found && m_mediaList.folderError();

    const std::string wanted = std::exchange(m_playWhenListed, {});
    const auto& medias = m_mediaList.medias();
    const auto recording = std::ranges::find(medias, wanted, &MRVMedia::path);
    if (recording != medias.end())
        m_playback.playAtIndex(recording - medias.begin());
    else
        offerReturn();
    return !gone;
}

void FolderCommands::showCard()
{
    const auto& card = m_cardOffer.card();
    m_views.bodyRightBox->mediaListTableView()->emptyState().setCard(card ? card->name : QString());
}

void FolderCommands::offerReturn()
{
    const auto place = m_place.lastPlace();
    if (!place)
        return;
    m_views.bodyRightBox->mediaListTableView()->selectOnlyRow(place->row);
    if (place->timeMs < leastTimeToReturnMs)
        return; // a double click on the row does as well
    m_views.bodyRightBox->returnStrip()->offer(*m_mediaList.mediaAtIndex(place->row), place->timeMs);
}

void FolderCommands::showRecentFolders()
{
    m_recent->refresh();
    QList<ListEmptyState::RecentFolder> folders;
    for (const FolderMemory::Folder& folder : m_memory.folders())
        folders.push_back({folderTitle(folder.path), folderPathText(folder.path)});
    m_views.bodyRightBox->mediaListTableView()->emptyState().setRecentFolders(folders);
}

} // namespace marvo
