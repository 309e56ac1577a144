// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/ToolWindows.h"

#include "card/clock/MRVTimeSetupController.h"
#include "card/disks/Disks.h"
#include "logs/window/DrivingLogWindow.h"
#include "platform/Screens.h"
#include "settings/tabs/SettingsTabs.h"
#include "settings/window/MRVSettingController.h"
#include "viewer/CustomWindow.h"

namespace marvo {

ToolWindows::ToolWindows(CustomWindow& window, Disks* disks,
                         viewControllerForMRVSettingDelegate* settingsDelegate)
    : m_window(window), m_disks(disks), m_settingsDelegate(settingsDelegate)
{}

template <typename Make>
void ToolWindows::showPanel(QPointer<QWidget>& panel, Make make)
{
    if (!m_disks)
        return;
    if (!panel) {
        panel = make(*m_disks);
        connect(&m_window, &CustomWindow::windowWillClose, panel, &QWidget::close);
        keepAbove(*panel, m_window);
    }
    m_lastDialogController = panel;
    panel->show();
    panel->raise();
    panel->activateWindow();
}

void ToolWindows::showSettingPanel()
{
    showPanel(m_settingPanel, [this](Disks& disks) {
        return new MRVSettingController(disks, settingsTabs(), m_settingsDelegate);
    });
}

void ToolWindows::showTimeSetupPanel()
{
    showPanel(m_timeSetupPanel, [](Disks& disks) { return new MRVTimeSetupController(disks); });
}

void ToolWindows::openDrivingLog(const std::string& folder)
{
    openDrivingLogDialog(&m_window, folder, [this](DrivingLogWindow& log) {
        connect(&m_window, &CustomWindow::windowWillClose, &log, &QWidget::close);
        keepAbove(log, m_window);
    });
}

} // namespace marvo
