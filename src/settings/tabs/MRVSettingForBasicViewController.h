// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/window/SettingsTabView.h"

class QCheckBox;
class QComboBox;
class QGroupBox;

namespace marvo {

class GsensorSensitivityBox;
class MRVCarNumberTextField;

/// The basic tab: the camera's display, recording mode, impact sensor, parking, video output, vehicle number
/// and power.
class MRVSettingForBasicViewController : public SettingsTabView
{
    Q_OBJECT
public:
    explicit MRVSettingForBasicViewController(QWidget* parent = nullptr);

    std::optional<QString> validateUserInput() override;

protected:
    void displayFileData(const _FILEDATA& record) override;
    void storeControls(_FILEDATA& record) override;

private:
    QWidget* impactPart();
    QGroupBox* displayBox();
    QGroupBox* recordingModeBox();
    QGroupBox* videoOutBox();
    QGroupBox* etcBox();
    QGroupBox* powerBox();

    void changeGsensorEnable();
    void updatePowerUI(const _FILEDATA& record);
    void clickAutoParkingModeChk(bool checked);
    void clickUseExternalPowerChk(bool checked);
    void clickSafeTemperatureModeChck(bool checked);

    void displayCarNumber(const _FILEDATA& record);
    void storeCarNumber(_FILEDATA& record) const;
    void carNumberEditingFinished();

    QCheckBox* m_gsensorEnableChk = nullptr;
    GsensorSensitivityBox* m_drivingBox = nullptr;
    GsensorSensitivityBox* m_parkingBox = nullptr;
    QComboBox* m_stanbyTimeCombo = nullptr;
    MRVCarNumberTextField* m_carNumberField = nullptr;
    QString m_shownCarNumber;        ///< the record's, as the field showed it first
    bool m_carNumberTouched = false; ///< edited since
    QComboBox* m_powerVoltageCombo = nullptr;
    QComboBox* m_powerTimeCombo = nullptr;
    QCheckBox* m_useExternalPowerChk = nullptr;
};

} // namespace marvo
