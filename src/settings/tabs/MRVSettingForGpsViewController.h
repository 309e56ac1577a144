// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/window/SettingsTabView.h"

namespace marvo {

/// The tab of the settings that need the camera's GPS receiver.
class MRVSettingForGpsViewController : public SettingsTabView
{
    Q_OBJECT
public:
    explicit MRVSettingForGpsViewController(QWidget* parent = nullptr);

protected:
    void displayFileData(const _FILEDATA& record) override;
    void storeControls(_FILEDATA& record) override;
};

} // namespace marvo
