// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/window/SettingsTabView.h"

class QGroupBox;

namespace marvo {

class RadioMatrix;
class SegmentedControl;

/// The video tab: resolution, bit rate, frame rate and picture settings.
class MRVSettingForVideoViewController : public SettingsTabView
{
    Q_OBJECT
public:
    explicit MRVSettingForVideoViewController(QWidget* parent = nullptr);

protected:
    void displayFileData(const _FILEDATA& record) override;
    void storeControls(_FILEDATA& record) override;

private:
    /// The resolutions as the record counts them.
    enum class Resolution { Higher = 0, Lower = 1 };

    QGroupBox* qualityBox();
    QGroupBox* pictureBox();
    void clickvideoResolutionSegment(int segment);
    /// Titles the bit rates with those of a resolution; the selected cell stays where it is.
    void setBPStext(Resolution resolution);
    /// Without a resolution a cell stands for no bit rate, so none can be chosen.
    void updateBitrateEnabled();

    SegmentedControl* m_videoResolution = nullptr;
    RadioMatrix* m_videoEncodingBitrate = nullptr;
};

} // namespace marvo
