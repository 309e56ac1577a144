// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/tabs/MRVSettingForVideoViewController.h"

#include "controls/RadioMatrix.h"
#include "controls/SegmentedControl.h"
#include "settings/FileData.h"
#include "settings/tabs/BoxedCells.h"
#include "settings/window/FieldBinding.h"
#include "settings/window/LabelFilling.h"
#include "settings/window/TabLayout.h"
#include "texts/Localisation.h"

#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace marvo {

namespace {

constexpr int bitrateCells = 6;

/// The segment of a stored frame rate, in 1/256 frames a second. The camera's list of rates has eight steps,
/// of which only the last two are offered; the slowest two are shown as these, those between have no segment.
int frameRateSegment(std::uint32_t stored)
{
    static constexpr std::array<std::uint32_t, 8> steps = {3, 5, 7, 10, 12, 15, 24, 30};
    const auto* found = std::find(steps.begin(), steps.end(), stored / 256);
    const int step = found == steps.end() ? 0 : static_cast<int>(found - steps.begin()) + 1;
    return step >= 7 ? step - 7 : step;
}

int brightnessSegment(std::uint32_t stored)
{
    return stored < 124 ? -1 : static_cast<int>((stored - 124) / 4);
}

const std::vector<ChoiceBinding>& choices()
{
    static const std::vector<ChoiceBinding> bindings = {
        {"videoResolution", &_FILEDATA::videoResolution, indexValues(2)},
        {"videoFrameRate", &_FILEDATA::videoFrameRate, {6144, 7680}, {}, frameRateSegment},
        {"videoBrightness", &_FILEDATA::videoBrightness, {124, 128, 132, 136, 140}, {}, brightnessSegment},
        {"videoCPLTinting", &_FILEDATA::cplTinting, indexValues(4)},
        {"videoSharpness", &_FILEDATA::videoSharpness, {1, 2, 3, 4, 5}},
        {"videoNoisefilter", &_FILEDATA::videoNoiseFilter, {1, 2, 3, 4, 5}},
    };
    return bindings;
}

/// The bit rate of the first cell in kbit/s for a segment of the resolution; each further cell is 1000 more.
std::uint32_t lowestBitrate(int resolution) { return resolution == 0 ? 6000 : 3000; }

/// "1" to "5", with the default marked.
QStringList levelLabels(int defaultLevel)
{
    QStringList labels;
    for (int level = 1; level <= 5; ++level) {
        const QString label = QString::number(level);
        labels.append(level == defaultLevel ? QStringLiteral("%1(%2)").arg(label, localised("default"))
                                            : label);
    }
    return labels;
}

} // namespace

MRVSettingForVideoViewController::MRVSettingForVideoViewController(QWidget* parent) : SettingsTabView(parent)
{
    QGroupBox* resolutionBox = titledBox("boxOfVideoResolution", "setting.video.resolution", this);
    m_videoResolution =
        segmentedControl("videoResolution", "setting.video.resolution",
                         localisedList({"setting.video.resolution_full_hd", "setting.video.resolution_hd"}));
    resolutionBox->layout()->addWidget(m_videoResolution);
    connect(m_videoResolution, &SegmentedControl::segmentClicked, this,
            &MRVSettingForVideoViewController::clickvideoResolutionSegment);

    QGroupBox* frameRateBox = titledBox("boxOfVideoFrameRate", "setting.video.frame_rate", this);
    frameRateBox->layout()->addWidget(
        segmentedControl("videoFrameRate", "setting.video.frame_rate",
                         localisedList({"setting.video.frame_rate_24", "setting.video.frame_rate_30"})));

    auto* firstRow = new QHBoxLayout;
    firstRow->setSpacing(12);
    firstRow->addWidget(resolutionBox, 1);
    firstRow->addWidget(frameRateBox, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(12);
    layout->addLayout(firstRow);
    layout->addWidget(qualityBox());
    layout->addWidget(pictureBox());
    layout->addStretch();
}

QGroupBox* MRVSettingForVideoViewController::qualityBox()
{
    QGroupBox* box = titledBox("boxOfVideoQuality", "setting.video.quality", this);
    m_videoEncodingBitrate = new RadioMatrix(1, bitrateCells);
    m_videoEncodingBitrate->setObjectName(QStringLiteral("videoEncodingBitrate"));
    m_videoEncodingBitrate->setAccessibleName(localised("setting.video.quality"));
    setBPStext(Resolution::Higher);
    box->layout()->addWidget(
        new BoxedCells(m_videoEncodingBitrate,
                       {titledBox("boxOfVideoQualityNormal", "setting.video.quality_normal", box),
                        titledBox("boxOfVideoQualityHigh", "setting.video.quality_high", box),
                        titledBox("boxOfVideoQualitySuperhigh", "setting.video.quality_highest", box)}));
    box->layout()->addWidget(guideLabel("bitrateGuide", "setting.video.bitrate_guide"));
    return box;
}

QGroupBox* MRVSettingForVideoViewController::pictureBox()
{
    struct Row
    {
        const char* label;
        const char* key;
        const char* control;
        QStringList labels;
    };
    const std::array<Row, 4> rows = {{
        {"brightnessLabel", "brightness", "videoBrightness", levelLabels(2)},
        {"cplTintingLabel",
         "cplandtinting",
         "videoCPLTinting",
         {QStringLiteral("Not Use CPL"), QStringLiteral("Use CPL"), QStringLiteral("Light Tinting"),
          QStringLiteral("Dark Tinting")}},
        {"sharpnessLabel", "sharpness", "videoSharpness", levelLabels(3)},
        {"noisefilterLabel", "noisefilter", "videoNoisefilter", levelLabels(2)},
    }};
    QGroupBox* box = titledBox("boxOfVideoSetting", "setting.video.video_setting", this);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(8);
    grid->setColumnStretch(1, 1);
    for (const Row& row : rows) {
        SegmentedControl* control = segmentedControl(row.control, row.key, row.labels);
        const int line = grid->rowCount();
        grid->addWidget(captionLabel(row.label, row.key, control), line, 0);
        grid->addWidget(control, line, 1);
    }
    static_cast<QVBoxLayout*>(box->layout())->addLayout(grid);
    return box;
}

void MRVSettingForVideoViewController::displayFileData(const _FILEDATA& record)
{
    showChoices(*this, choices(), record);
    setBPStext(record.videoResolution == 0 ? Resolution::Higher : Resolution::Lower);
    updateBitrateEnabled();
    const int resolution = m_videoResolution->selectedSegment();
    const int cell =
        static_cast<int>(record.videoBitrate / 1000) - static_cast<int>(lowestBitrate(resolution) / 1000);
    m_videoEncodingBitrate->setSelectedCell(resolution >= 0 ? cell : -1);
}

void MRVSettingForVideoViewController::storeControls(_FILEDATA& record)
{
    storeChoices(*this, choices(), record);
    // The camera records at one of two rates only: a rate without a segment is not stored.
    if (choice(*findChild<SegmentedControl*>(QStringLiteral("videoFrameRate"))) < 0)
        record.videoFrameRate = 7680;
    const int resolution = m_videoResolution->selectedSegment();
    const int cell = m_videoEncodingBitrate->selectedCell();
    if (resolution >= 0 && cell >= 0)
        record.videoBitrate = lowestBitrate(resolution) + 1000 * static_cast<std::uint32_t>(cell);
}

void MRVSettingForVideoViewController::clickvideoResolutionSegment(int segment)
{
    setBPStext(segment == 0 ? Resolution::Higher : Resolution::Lower);
    updateBitrateEnabled();
}

void MRVSettingForVideoViewController::setBPStext(Resolution resolution)
{
    fillMatrixTitles(*m_videoEncodingBitrate, resolution == Resolution::Higher
                                                  ? localisedList({"6", "7", "8", "9", "10", "11"})
                                                  : localisedList({"3", "4", "5", "6", "7", "8"}));
}

void MRVSettingForVideoViewController::updateBitrateEnabled()
{
    m_videoEncodingBitrate->setEnabled(m_videoResolution->selectedSegment() >= 0);
}

} // namespace marvo
