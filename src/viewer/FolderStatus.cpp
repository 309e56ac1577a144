// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/FolderStatus.h"

#include "media/MRVMediaList.h"
#include "texts/Localisation.h"
#include "viewer/folders/RecentFoldersMenu.h"
#include "viewer/HeadBox.h"
#include "viewer/list/RecordingListView.h"
#include "viewer/list/RecordingTableModel.h"
#include "viewer/MainViews.h"
#include "viewer/SidePanel.h"

#include <QLocale>

namespace marvo {

FolderStatus::FolderStatus(MainViews& views, const MRVMediaList& mediaList, RecordingTableModel& recordings)
    : m_views(views), m_mediaList(mediaList), m_recordings(recordings)
{
    connect(views.bodyRightBox->mediaListTableView(), &RecordingListView::shownRowsChanged, this,
            &FolderStatus::showCount);
}

void FolderStatus::showFolder(const QString& detail)
{
    const std::string& path = m_mediaList.directoryPath();
    m_views.headBox->showFolder(folderTitle(path), folderPathText(path), detail);
}

/// How many recordings the folder has, and how many of them a search leaves.
void FolderStatus::showCount(int shown)
{
    if (m_mediaList.isScanning())
        return; // the rows are those of the folder before
    const qint64 count = m_mediaList.count();
    const QString all = QLocale().toString(count);
    const QString found =
        count == 1 ? localised("viewer.folder.countOne") : localised("viewer.folder.count").arg(all);
    if (shown < count)
        showFolder(localised("folders.shownOf").arg(QLocale().toString(shown), all));
    else if (m_mediaList.folderError())
        showFolder(localised("viewer.folder.incomplete")
                       .arg(found, QString::fromStdString(m_mediaList.folderError().message())));
    else
        showFolder(found);
}

void FolderStatus::showNothingOpen()
{
    m_views.bodyRightBox->mediaListTableView()->showNoFolder();
    m_views.headBox->showFolder({}, {}, {});
}

void FolderStatus::showPlaying(std::int64_t row)
{
    const MRVMedia* media = m_mediaList.mediaAtIndex(row);
    if (!media)
        return m_views.headBox->showPlaying({}, {});
    const auto cell = [&](int column) {
        return m_recordings.index(static_cast<int>(row), column).data().toString();
    };
    using Model = RecordingTableModel;
    const int camera = mediaDirection(media->path());
    const QString kind = cell(Model::SaveMode);
    const QString title =
        camera == UnknownMedia
            ? kind
            : localised(camera == FrontMedia ? "viewer.playing.front" : "viewer.playing.rear").arg(kind);
    const QString time = cell(Model::Date).isEmpty() // its name tells no time
                             ? cell(Model::File)
                             : QStringLiteral("%1 %2").arg(cell(Model::Date), cell(Model::Time));
    m_views.headBox->showPlaying(title, time);
}

void FolderStatus::showScanning(qint64 found)
{
    showFolder(localised("viewer.folder.reading"));
    m_views.bodyRightBox->mediaListTableView()->showScanning(found);
}

void FolderStatus::showListed()
{
    m_recordings.reload();
    RecordingListView* list = m_views.bodyRightBox->mediaListTableView();
    if (m_mediaList.count() == 0 && m_mediaList.folderError()) {
        list->showUnreadable(QString::fromStdString(m_mediaList.folderError().message()));
        showFolder(localised("viewer.folder.unreadable"));
    } else {
        list->showRecordings();
        showCount(static_cast<int>(m_mediaList.count()));
    }
}

} // namespace marvo
