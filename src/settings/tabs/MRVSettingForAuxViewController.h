// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/tabs/PercentSlider.h"
#include "settings/window/SettingsTabView.h"

class QCheckBox;
class QLabel;

namespace marvo {

class SegmentedControl;

/// The recording tab: the card's shares of continuous, motion and event
/// recordings, motion detection, exposure, mains frequency and place of use.
///
/// The slider's low knob ends the share of the continuous recordings, its high knob that of the motion
/// recordings; the rest is the events'. Each share has to be 10 per cent at least.
class MRVSettingForAuxViewController : public SettingsTabView
{
    Q_OBJECT
    /// The knobs' places in per cent, 0 <= low <= high <= 100; anything else set is clamped.
    Q_PROPERTY(int ratioLoValue READ ratioLoValue WRITE setRatioLoValue NOTIFY ratioLoValueChanged)
    Q_PROPERTY(int ratioHiValue READ ratioHiValue WRITE setRatioHiValue NOTIFY ratioHiValueChanged)
public:
    explicit MRVSettingForAuxViewController(QWidget* parent = nullptr);

    int ratioLoValue() const { return m_ratio.lo; }
    void setRatioLoValue(int value);
    int ratioHiValue() const { return m_ratio.hi; }
    void setRatioHiValue(int value);

    /// The message for the first share that is too small, in the order of the knobs.
    std::optional<QString> validateUserInput() override;

Q_SIGNALS:
    void ratioLoValueChanged();
    void ratioHiValueChanged();

protected:
    void displayFileData(const _FILEDATA& record) override;
    void storeControls(_FILEDATA& record) override;

private:
    QWidget* sdcardCapacityBox();
    QWidget* motionBox();
    QWidget* shareView(const char* captionName, const char* captionKey, QLabel*& field,
                       const char* fieldName);

    void updateRatio();
    void updateMotionUI();
    void clickUseMotionChk();
    int alwaysShare() const { return m_ratio.lo; }
    int motionShare() const { return m_ratio.hi - m_ratio.lo; }
    int eventShare() const;

    PercentRange m_ratio;
    SMDoubleSlider* m_sdRatioSlider = nullptr;
    QLabel* m_alwaysField = nullptr;
    QLabel* m_motionField = nullptr;
    QLabel* m_eventField = nullptr;
    QCheckBox* m_useMotionChk = nullptr;
    SegmentedControl* m_HDSensitivitySeg = nullptr;
    SegmentedControl* m_FHDSensitivitySeg = nullptr;
};

} // namespace marvo
