// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/window/SettingsTabView.h"

namespace marvo {

class DrivingLogViewController;

/// A driving log as a tab of the settings window. It edits nothing of the settings.
class DrivingLogTab : public SettingsTabView
{
    Q_OBJECT
public:
    /// Takes the view over.
    explicit DrivingLogTab(DrivingLogViewController* logView, QWidget* parent = nullptr);

    DrivingLogViewController& logView() const { return *m_logView; }

    void setMainController(MRVSettingController* controller) override;
    void onHide() override;

protected:
    /// The first time, the log that the view was given is read.
    void displayFileData(const _FILEDATA& record) override;
    void storeControls(_FILEDATA&) override {}

private:
    DrivingLogViewController* m_logView;
    bool m_isFirstDisplay = true;
};

} // namespace marvo
