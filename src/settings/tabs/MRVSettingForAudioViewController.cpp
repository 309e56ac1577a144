// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/tabs/MRVSettingForAudioViewController.h"

#include "controls/InterfaceScale.h"
#include "controls/RadioMatrix.h"
#include "controls/SegmentedControl.h"
#include "settings/FileData.h"
#include "settings/window/FieldBinding.h"
#include "settings/window/LabelFilling.h"
#include "settings/window/TabLayout.h"
#include "texts/Localisation.h"

#include <algorithm>
#include <array>
#include <QAbstractButton>
#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QRadioButton>

namespace marvo {

namespace {

constexpr std::array<std::uint32_t, 3> speakerVolumes = {39, 51, 63};
constexpr std::uint32_t malaysianLanguage = 20;
constexpr int languageGridRows = 4;
constexpr int languageGridColumns = 5;
constexpr int languagePointSize = 12;

const std::vector<ChoiceBinding>& choices()
{
    static const std::vector<ChoiceBinding> bindings = {
        {"micSeg", &_FILEDATA::micLevel, {1, 2, 3}},
        {"voiceLangRadio", &_FILEDATA::voiceLanguage, indexValues(languageGridRows * languageGridColumns)},
    };
    return bindings;
}

const std::vector<FlagBinding>& flags()
{
    static const std::vector<FlagBinding> bindings = {
        {"useVoiceRecordingChk", &_FILEDATA::voiceRecording},
        {"useVoiceGuidanceChk", &_FILEDATA::voiceGuidance},
        {"useEveryHourNoticeChk", &_FILEDATA::hourlyNotice},
    };
    return bindings;
}

/// In the order of the camera's values.
QStringList languageTitles()
{
    return localisedList({"Korean",
                          "English",
                          "French",
                          "Spanish.Europe",
                          "Arabic",
                          "Chinese",
                          "Russian",
                          "Japanese",
                          "Thai",
                          "BahasaIndonesia",
                          "Vietnamese",
                          "Mongolian",
                          "Spanish.SouthAmerica",
                          "German",
                          "Turkish",
                          "Italian",
                          "Hindi",
                          "Cantonese",
                          "Czech",
                          "Portuguese"});
}

QStringList levelLabels()
{
    return {labelWith("1(%@)", "setting.aux.volume_down"), QStringLiteral("2"),
            labelWith("3(%@)", "setting.aux.volume_up")};
}

} // namespace

// ---- the controls

MRVSettingForAudioViewController::MRVSettingForAudioViewController(QWidget* parent)
    : SettingsTabView(parent),
      m_useVoiceRecordingChk(checkBox("useVoiceRecordingChk", "setting.aux.enable_voice_recording")),
      m_micSeg(segmentedControl("micSeg", "setting.aux.mic_volume", levelLabels())),
      m_useVoiceGuidanceChk(checkBox("useVoiceGuidanceChk", "setting.aux.enable_voice_guidance")),
      m_speakerSeg(segmentedControl("speakerSeg", "setting.aux.speaker_volume", levelLabels())),
      m_voiceLangRadio(new RadioMatrix(languageGridRows, languageGridColumns)),
      m_malaysiaRadio(new QRadioButton(localised("Malaysia")))
{
    auto* page = new QGridLayout(this);
    page->setContentsMargins(0, 0, 0, 0);
    page->setSpacing(12);
    page->addWidget(titledBoxWith("boxOfMic", "setting.aux.record_settings", {m_useVoiceRecordingChk}), 0, 0);
    page->addWidget(titledBoxWith("boxOfMicVolume", "setting.aux.mic_volume", {m_micSeg}), 0, 1);
    QGroupBox* sounds = titledBoxWith(
        "boxOfSpeaker", "setting.aux.speaker_volume",
        {m_useVoiceGuidanceChk, checkBox("useEveryHourNoticeChk", "setting.aux.enable_hourly_alarm")});
    QGroupBox* volume = titledBoxWith("boxOfSpeakerVolume", "setting.aux.speaker_volume", {m_speakerSeg});
    // Their titles are the same.
    sounds->setAccessibleDescription(localised("setting.audio.speaker_sounds"));
    volume->setAccessibleDescription(localised("setting.audio.speaker_level"));
    page->addWidget(sounds, 1, 0);
    page->addWidget(volume, 1, 1);
    page->addWidget(voiceLangBox(), 2, 0, 1, 2);
    page->setColumnStretch(0, 1);
    page->setColumnStretch(1, 1);
    page->setRowStretch(3, 1);

    // toggled(), not clicked(): assistive technology toggles without a click.
    connect(m_useVoiceRecordingChk, &QCheckBox::toggled, this,
            &MRVSettingForAudioViewController::clickVoiceRecordingChk);
    connect(m_useVoiceGuidanceChk, &QCheckBox::toggled, this,
            &MRVSettingForAudioViewController::clickVoiceGuidanceChk);
    connect(m_voiceLangRadio, &RadioMatrix::selectedCellChanged, this,
            &MRVSettingForAudioViewController::voiceLangMatrixSelected);
    connect(m_malaysiaRadio, &QRadioButton::toggled, this,
            &MRVSettingForAudioViewController::malaysiaRadioSelected);
}

QWidget* MRVSettingForAudioViewController::voiceLangBox()
{
    QFont font = QApplication::font();
    font.setPointSizeF(scaledPoints(languagePointSize));

    m_voiceLangRadio->setObjectName(QStringLiteral("voiceLangRadio"));
    m_voiceLangRadio->setAccessibleName(localised("setting.aux.voice_guidance_lang_setting"));
    fillMatrixTitles(*m_voiceLangRadio, languageTitles());
    // With a style sheet, the cells do not inherit the grid's font.
    for (int cell = 0; cell < m_voiceLangRadio->cellCount(); ++cell)
        m_voiceLangRadio->cell(cell)->setFont(font);

    m_malaysiaRadio->setObjectName(QStringLiteral("malaysiaRadio"));
    m_malaysiaRadio->setFont(font);
    // A second click would uncheck a single radio button.
    auto* group = new QButtonGroup(m_malaysiaRadio);
    group->addButton(m_malaysiaRadio);

    return titledBoxWith("boxOfVoiceLang", "setting.aux.voice_guidance_lang_setting",
                         {m_voiceLangRadio, m_malaysiaRadio});
}

// ---- the record

void MRVSettingForAudioViewController::displayFileData(const _FILEDATA& record)
{
    showFlags(*this, flags(), record);
    updateVoiceRecordingUI();
    updateVoiceGuidanceUI();
    showChoices(*this, choices(), record);
    showSpeakerVolume(record.speakerVolume);
    setMalaysiaRadioOn(record.voiceLanguage == malaysianLanguage);
}

void MRVSettingForAudioViewController::storeControls(_FILEDATA& record)
{
    storeFlags(*this, flags(), record);
    storeChoices(*this, choices(), record);
    const int speaker = m_speakerSeg->selectedSegment();
    if (speaker >= 0)
        record.speakerVolume = speakerVolumes.at(static_cast<std::size_t>(speaker));
    if (m_malaysiaRadio->isChecked())
        record.voiceLanguage = malaysianLanguage;
}

void MRVSettingForAudioViewController::showSpeakerVolume(std::uint32_t volume)
{
    // A value above the loudest level has no item: the control stays as it is.
    const auto* const level = std::lower_bound(speakerVolumes.begin(), speakerVolumes.end(), volume);
    if (level != speakerVolumes.end())
        m_speakerSeg->setSelectedSegment(static_cast<int>(level - speakerVolumes.begin()));
}

// ---- sound recording and voice guidance

void MRVSettingForAudioViewController::updateVoiceRecordingUI()
{
    m_micSeg->setEnabled(fileData() && fileData()->voiceRecording != 0);
}

void MRVSettingForAudioViewController::updateVoiceGuidanceUI()
{
    m_speakerSeg->setEnabled(fileData() && fileData()->voiceGuidance != 0);
}

void MRVSettingForAudioViewController::clickVoiceRecordingChk()
{
    if (fileData())
        storeToggled(fileData()->voiceRecording, m_useVoiceRecordingChk->isChecked());
    updateVoiceRecordingUI();
}

void MRVSettingForAudioViewController::clickVoiceGuidanceChk()
{
    if (fileData())
        storeToggled(fileData()->voiceGuidance, m_useVoiceGuidanceChk->isChecked());
    updateVoiceGuidanceUI();
}

// ---- the language of the guidance

void MRVSettingForAudioViewController::voiceLangMatrixSelected()
{
    if (m_voiceLangRadio->selectedCell() >= 0)
        setMalaysiaRadioOn(false);
}

void MRVSettingForAudioViewController::malaysiaRadioSelected()
{
    if (!m_malaysiaRadio->isChecked())
        return;
    m_voiceLangRadio->deselectAllCells();
    if (fileData())
        fileData()->voiceLanguage = malaysianLanguage;
}

void MRVSettingForAudioViewController::setMalaysiaRadioOn(bool on)
{
    // The checked button of an exclusive group cannot be unchecked.
    m_malaysiaRadio->group()->setExclusive(false);
    m_malaysiaRadio->setChecked(on);
    m_malaysiaRadio->group()->setExclusive(true);
}

} // namespace marvo
