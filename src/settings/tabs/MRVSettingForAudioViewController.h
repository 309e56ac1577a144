// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/window/SettingsTabView.h"

#include <cstdint>

class QCheckBox;
class QRadioButton;

namespace marvo {

class RadioMatrix;
class SegmentedControl;

/// The audio tab: sound recording and microphone level, voice guidance and
/// speaker volume, the hourly announcement, and the language of the guidance. The Malaysian language has a
/// radio button beside the grid of the others.
class MRVSettingForAudioViewController : public SettingsTabView
{
    Q_OBJECT
public:
    explicit MRVSettingForAudioViewController(QWidget* parent = nullptr);

protected:
    void displayFileData(const _FILEDATA& record) override;
    void storeControls(_FILEDATA& record) override;

private:
    QWidget* voiceLangBox();

    void showSpeakerVolume(std::uint32_t volume);
    void updateVoiceRecordingUI();
    void updateVoiceGuidanceUI();
    void clickVoiceRecordingChk();
    void clickVoiceGuidanceChk();
    void voiceLangMatrixSelected();
    void malaysiaRadioSelected();
    void setMalaysiaRadioOn(bool on);

    QCheckBox* m_useVoiceRecordingChk;
    SegmentedControl* m_micSeg;
    QCheckBox* m_useVoiceGuidanceChk;
    SegmentedControl* m_speakerSeg;
    RadioMatrix* m_voiceLangRadio;
    QRadioButton* m_malaysiaRadio;
};

} // namespace marvo
