// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>

#include <string>

namespace marvo {

class FolderMemory;

/// How a folder is called where there is little room: its own name, or its path when it has none ("/").
QString folderTitle(const std::string& path);
QString folderPathText(const std::string& path);

/// The menu of the folders opened last. Folders that are gone stay in it: a card may come back.
class RecentFoldersMenu : public QMenu
{
    Q_OBJECT
public:
    RecentFoldersMenu(const FolderMemory& memory, QWidget* parent);

    /// Shows what the memory holds now.
    void refresh();

Q_SIGNALS:
    void folderChosen(const std::string& path);
    void clearRequested();

private:
    const FolderMemory& m_memory;
};

} // namespace marvo
