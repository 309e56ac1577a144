// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/tabs/PercentSlider.h"
#include "settings/window/SettingsTabView.h"

class QLabel;

namespace marvo {

class SegmentedControl;

/// The tab of cameras with an OBD adapter: weekly alarm, speed unit, time zone, speed on the camera's
/// display, saving interval of the route, OBD while parked, cut-off voltage, and the two thresholds between
/// eco, normal and un-eco driving.
///
/// The record holds the thresholds in hundredths, "ecoLow" the higher one; the slider shows 100 minus each.
class MRVSettingForObdViewController : public SettingsTabView
{
    Q_OBJECT
    /// The knobs' places, 0 <= low <= high <= 100; anything else set is clamped.
    Q_PROPERTY(int ecoLoValue READ ecoLoValue WRITE setEcoLoValue NOTIFY ecoLoValueChanged)
    Q_PROPERTY(int ecoHiValue READ ecoHiValue WRITE setEcoHiValue NOTIFY ecoHiValueChanged)
public:
    explicit MRVSettingForObdViewController(QWidget* parent = nullptr);

    int ecoLoValue() const { return m_eco.lo; }
    void setEcoLoValue(int value);
    int ecoHiValue() const { return m_eco.hi; }
    void setEcoHiValue(int value);

Q_SIGNALS:
    void ecoLoValueChanged();
    void ecoHiValueChanged();

protected:
    void displayFileData(const _FILEDATA& record) override;
    void storeControls(_FILEDATA& record) override;

private:
    QWidget* timeBox();
    QWidget* powerBox();
    QWidget* ecoBox();

    void showRouteSaving(std::uint32_t routeSaveInterval);
    std::uint32_t routeSaving(std::uint32_t stored) const;
    void updateEco();

    PercentRange m_eco;
    SMDoubleSlider* m_ecoSlider = nullptr;
    QLabel* m_ecoDriveLabel = nullptr;
    QLabel* m_normalDriveLabel = nullptr;
    QLabel* m_unecoDriveLabel = nullptr;
    SegmentedControl* m_saveDurationSeg;
    SegmentedControl* m_useObdParkingSeg;
};

} // namespace marvo
