// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <string>

namespace marvo {

class CustomWindow;
class Disks;
class viewControllerForMRVSettingDelegate;

/// The windows beside the main one: the camera's settings, its clock, driving logs. Each goes with the main
/// window.
class ToolWindows : public QObject
{
    Q_OBJECT
public:
    /// The objects are not owned and must outlive this one. Without disks neither settings nor clock are
    /// shown.
    ToolWindows(CustomWindow& window, Disks* disks, viewControllerForMRVSettingDelegate* settingsDelegate);

    /// Opens the camera's settings, or brings the window forward that already shows them.
    void showSettingPanel();
    /// Opens the camera's clock, or brings the dialog forward that already shows it.
    void showTimeSetupPanel();
    /// Asks for a driving log, beginning in a folder (bytes), and shows it.
    void openDrivingLog(const std::string& folder);
    /// The settings or clock dialog that was opened last; none once it has been closed.
    QWidget* lastDialogController() const { return m_lastDialogController; }

private:
    template <typename Make>
    void showPanel(QPointer<QWidget>& panel, Make make);

    CustomWindow& m_window;
    Disks* m_disks;
    viewControllerForMRVSettingDelegate* m_settingsDelegate;
    QPointer<QWidget> m_settingPanel;
    QPointer<QWidget> m_timeSetupPanel;
    QPointer<QWidget> m_lastDialogController;
};

} // namespace marvo
