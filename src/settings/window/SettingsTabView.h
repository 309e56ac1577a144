// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/window/MRVSettingControllerDelegate.h"

#include <QWidget>

namespace marvo {

/// What the tabs have in common: the lent record and the window, and when they are shown and stored.
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
    /// A person has changed what a control shows: by mouse, keys or assistive technology.
    void edited();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// Shows the record in the controls.
    virtual void displayFileData(const _FILEDATA& record) = 0;
    /// Stores the controls, whose input is valid, into the record.
    virtual void storeControls(_FILEDATA& record) = 0;

    /// The lent record; null before the first setFileData(). For the few controls that store at once when
    /// clicked.
    _FILEDATA* fileData() const { return m_fileData; }
    MRVSettingController* mainController() const { return m_mainController; }
    /// While a record is shown: controls change, but nobody has chosen anything.
    bool isDisplaying() const { return m_displaying; }

private:
    void watchControls();
    void controlChanged();

    _FILEDATA* m_fileData = nullptr;
    MRVSettingController* m_mainController = nullptr;
    bool m_displaying = false;
};

} // namespace marvo
