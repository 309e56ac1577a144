// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/folders/RecentFoldersMenu.h"

#include "controls/PlainToolTip.h"
#include "texts/DisplayText.h"
#include "texts/Localisation.h"
#include "viewer/folders/FolderMemory.h"

#include <QDir>
#include <QFile>

namespace marvo {

namespace {

constexpr int widestEntry = 380;

} // namespace

QString folderPathText(const std::string& path)
{
    return displayText(QDir::cleanPath(QFile::decodeName(QByteArray::fromStdString(path))));
}

QString folderTitle(const std::string& path)
{
    const QString whole = folderPathText(path);
    const QString name = QDir(whole).dirName();
    return name.isEmpty() ? whole : name;
}

RecentFoldersMenu::RecentFoldersMenu(const FolderMemory& memory, QWidget* parent)
    : QMenu(localised("folders.recentFolders"), parent), m_memory(memory)
{
    setObjectName(QStringLiteral("recentFoldersMenu"));
    setToolTipsVisible(true);
    refresh();
}

void RecentFoldersMenu::refresh()
{
    clear();
    for (const FolderMemory::Folder& folder : m_memory.folders()) {
        const QString whole = folderPathText(folder.path);
        QString shown = fontMetrics().elidedText(whole, Qt::ElideMiddle, widestEntry);
        QAction* entry = addAction(shown.replace(QLatin1Char('&'), QStringLiteral("&&")));
        entry->setToolTip(plainToolTip(whole));
        connect(entry, &QAction::triggered, this, [this, path = folder.path] { Q_EMIT folderChosen(path); });
    }
    const bool empty = m_memory.folders().empty();
    menuAction()->setEnabled(!empty);
    if (empty)
        return;
    addSeparator();
    QAction* forget = addAction(localised("folders.clearRecent"));
    forget->setObjectName(QStringLiteral("clearRecentFolders"));
    connect(forget, &QAction::triggered, this, &RecentFoldersMenu::clearRequested);
}

} // namespace marvo
