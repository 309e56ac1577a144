// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/window/SettingsTabView.h"

#include "settings/FileData.h"

namespace marvo {

void SettingsTabView::setFileData(_FILEDATA* record)
{
    m_fileData = record;
    if (record)
        displayFileData(*record);
}

void SettingsTabView::populate()
{
    if (m_fileData && !validateUserInput())
        storeControls(*m_fileData);
}

} // namespace marvo
