// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/window/MRVSettingControllerDelegate.h"

#include <QWidget>

namespace marvo {

/// The base of the tabs: holds the window's record, shows it and stores the controls into it.
class SettingsTabView : public QWidget, public MRVSettingControllerDelegate
{
    Q_OBJECT
public:
    using QWidget::QWidget;

    void setFileData(_FILEDATA* record) override;
    void populate() override;
    std::optional<QString> validateUserInput() override { return std::nullopt; }
    void setMainController(MRVSettingController* controller) override { m_mainController = controller; }

Q_SIGNALS:
    /// The user has changed a control, by mouse, keys or assistive technology.
    void edited();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// Shows the record in the controls.
    virtual void displayFileData(const _FILEDATA& record) = 0;
    /// Stores the controls, whose input is valid, into the record.
    virtual void storeControls(_FILEDATA& record) = 0;

    /// The window's record; null before the first setFileData(). For the few controls that store at once.
    _FILEDATA* fileData() const { return m_fileData; }
    MRVSettingController* mainController() const { return m_mainController; }
    /// True while a record is being shown: the controls change, but not by the user.
    bool isDisplaying() const { return m_displaying; }

private:
    void watchControls();
    void controlChanged();

    _FILEDATA* m_fileData = nullptr;
    MRVSettingController* m_mainController = nullptr;
    bool m_displaying = false;
};

} // namespace marvo
