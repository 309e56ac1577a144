// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/tabs/MRVSettingForAuxViewController.h"

#include "controls/SegmentedControl.h"
#include "lib/RangeSlider/SMDoubleSlider.h"
#include "settings/FileData.h"
#include "settings/MRVValidator.h"
#include "settings/window/FieldBinding.h"
#include "settings/window/TabLayout.h"
#include "texts/Localisation.h"

#include <algorithm>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

namespace marvo {

namespace {

const std::vector<ChoiceBinding>& choices()
{
    static const std::vector<ChoiceBinding> bindings = {
        {"dayTimeAESeg", &_FILEDATA::dayTimeAE, indexValues(3)},
        {"gammaSeg", &_FILEDATA::gamma, indexValues(2)},
        {"useEnvironmentSeg", &_FILEDATA::useEnvironment, {1, 0}, Fallback{0}},
        {"HDSensitivitySeg", &_FILEDATA::motionSensitivityHd, {50, 60, 75, 100, 150}, Fallback{0}},
        {"FHDSensitivitySeg", &_FILEDATA::motionSensitivityFhd, {65, 70, 90, 100, 130}, Fallback{0}},
    };
    return bindings;
}

const std::vector<FlagBinding>& flags()
{
    static const std::vector<FlagBinding> bindings = {{"useMotionChk", &_FILEDATA::useMotion}};
    return bindings;
}

QStringList sensitivityLabels()
{
    return {labelWith("1(%@)", "insensitive"), QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("4"),
            labelWith("5(%@)", "sensitive")};
}

} // namespace

// ---- the controls

MRVSettingForAuxViewController::MRVSettingForAuxViewController(QWidget* parent) : SettingsTabView(parent)
{
    auto* page = new QGridLayout(this);
    page->setContentsMargins(0, 0, 0, 0);
    page->setSpacing(12);
    page->addWidget(sdcardCapacityBox(), 0, 0, 1, 2);
    page->addWidget(motionBox(), 1, 0, 1, 2);
    page->addWidget(
        titledBoxWith("boxOfNightAE", "setting.aux.night_ae_setting",
                      {segmentedControl("dayTimeAESeg", "setting.aux.night_ae_setting",
                                        localisedList({"setting.aux.low", "setting.aux.medium_sedan",
                                                       "setting.aux.high_suv"}))}),
        2, 0);
    page->addWidget(
        titledBoxWith("boxOfAcFrequency", "setting.aux.country_ac_power_setting",
                      {segmentedControl("gammaSeg", "setting.aux.country_ac_power_setting",
                                        {QStringLiteral("60Hz(30fps)"), QStringLiteral("50Hz(25fps)")})}),
        2, 1);
    page->addWidget(titledBoxWith("boxOfPlaceofUse", "setting.aux.place_of_use",
                                  {segmentedControl("useEnvironmentSeg", "setting.aux.place_of_use",
                                                    localisedList({"setting.aux.place_of_use_vehicle",
                                                                   "setting.aux.place_of_use_indoor"})),
                                   guideLabel("environmentLabel", "setting.aux.place_of_use_guide")}),
                    3, 0, 1, 2);
    page->setColumnStretch(0, 1);
    page->setColumnStretch(1, 1);
    page->setRowStretch(4, 1);

    m_sdRatioSlider->bind(SMDoubleSlider::Binding::ObjectLoValue, this, "ratioLoValue");
    m_sdRatioSlider->bind(SMDoubleSlider::Binding::ObjectHiValue, this, "ratioHiValue");
    connect(this, &MRVSettingForAuxViewController::ratioLoValueChanged, this,
            &MRVSettingForAuxViewController::updateRatio);
    connect(this, &MRVSettingForAuxViewController::ratioHiValueChanged, this,
            &MRVSettingForAuxViewController::updateRatio);
    // Not clicked(): assistive technology toggles without a click.
    connect(m_useMotionChk, &QCheckBox::toggled, this, &MRVSettingForAuxViewController::clickUseMotionChk);
}

QWidget* MRVSettingForAuxViewController::sdcardCapacityBox()
{
    const PercentSlider ratio =
        percentSlider("sdRatioSlider", "sdRatioSliderAxisView", "setting.aux.sdcard_capacity");
    m_sdRatioSlider = ratio.slider;

    auto* content = new QWidget;
    auto* row = new QHBoxLayout(content);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(ratio.view, 1, Qt::AlignTop);
    row->addStretch();
    row->addWidget(shareView("alwaysLabel", "setting.aux.always", m_alwaysField, "alwaysField"));
    row->addWidget(shareView("motionLabel", "setting.aux.motion", m_motionField, "motionField"));
    row->addWidget(shareView("eventLabel", "setting.aux.event", m_eventField, "eventField"));
    row->addStretch();

    auto* warning = guideLabel("sdcardCapacityWarningLabel", "msg.memconfig_warning");
    warning->hide();
    return titledBoxWith("boxOfSdcardCapatity", "setting.aux.sdcard_capacity", {content, warning});
}

QWidget* MRVSettingForAuxViewController::shareView(const char* captionName, const char* captionKey,
                                                   QLabel*& field, const char* fieldName)
{
    field = new QLabel;
    field->setObjectName(QLatin1String(fieldName));
    field->setAccessibleDescription(localised(captionKey));
    field->setAlignment(Qt::AlignHCenter);
    auto* caption = captionLabel(captionName, captionKey);
    caption->setAlignment(Qt::AlignHCenter);

    auto* view = new QWidget;
    auto* column = new QVBoxLayout(view);
    column->setContentsMargins(8, 0, 8, 0);
    column->setSpacing(4);
    column->addWidget(caption);
    column->addWidget(field);
    return view;
}

QWidget* MRVSettingForAuxViewController::motionBox()
{
    m_useMotionChk = checkBox("useMotionChk", "setting.aux.motion_sense_use");
    m_HDSensitivitySeg =
        segmentedControl("HDSensitivitySeg", "setting.aux.hd_sensitivity", sensitivityLabels());
    m_FHDSensitivitySeg =
        segmentedControl("FHDSensitivitySeg", "setting.aux.fhd_sensitivity", sensitivityLabels());

    auto* sensitivities = new QWidget;
    auto* grid = new QGridLayout(sensitivities);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(
        captionLabel("FHDMotionSensitivityLabel", "setting.aux.fhd_sensitivity", m_FHDSensitivitySeg), 0, 0);
    grid->addWidget(m_FHDSensitivitySeg, 0, 1);
    grid->addWidget(
        captionLabel("HDMotionSensitivityLabel", "setting.aux.hd_sensitivity", m_HDSensitivitySeg), 1, 0);
    grid->addWidget(m_HDSensitivitySeg, 1, 1);
    grid->setColumnStretch(1, 1);
    return titledBoxWith("boxOfMotion", "setting.aux.motion_sense_setting", {m_useMotionChk, sensitivities});
}

// ---- the record

void MRVSettingForAuxViewController::displayFileData(const _FILEDATA& record)
{
    const std::int64_t always = record.sdRatioAlways;
    m_ratio = PercentRange::clamped(always, always + record.sdRatioMotion);
    Q_EMIT ratioLoValueChanged();
    Q_EMIT ratioHiValueChanged();
    showChoices(*this, choices(), record);
    showFlags(*this, flags(), record);
    updateMotionUI();
}

std::optional<QString> MRVSettingForAuxViewController::validateUserInput()
{
    if (!fileData())
        return std::nullopt;
    for (const int share : {alwaysShare(), motionShare(), eventShare()}) {
        if (auto message = MRVValidator::validateSDCardSizeRatio(share)) {
            m_sdRatioSlider->setFocus();
            return message;
        }
    }
    return std::nullopt;
}

void MRVSettingForAuxViewController::storeControls(_FILEDATA& record)
{
    record.sdRatioAlways = static_cast<std::uint32_t>(alwaysShare());
    record.sdRatioMotion = static_cast<std::uint32_t>(motionShare());
    record.sdRatioEvent = static_cast<std::uint32_t>(eventShare());
    storeChoices(*this, choices(), record);
    storeFlags(*this, flags(), record);
}

// ---- the card's shares

void MRVSettingForAuxViewController::setRatioLoValue(int value)
{
    value = PercentRange::clamped(value, m_ratio.hi).lo;
    if (value == m_ratio.lo)
        return;
    m_ratio.lo = value;
    Q_EMIT ratioLoValueChanged();
}

void MRVSettingForAuxViewController::setRatioHiValue(int value)
{
    value = PercentRange::clamped(m_ratio.lo, std::max(value, m_ratio.lo)).hi;
    if (value == m_ratio.hi)
        return;
    m_ratio.hi = value;
    Q_EMIT ratioHiValueChanged();
}

void MRVSettingForAuxViewController::updateRatio()
{
    // The high knob first: the low one cannot pass it.
    m_sdRatioSlider->setIntegerHiValue(m_ratio.hi);
    m_sdRatioSlider->setIntegerLoValue(m_ratio.lo);
    m_alwaysField->setText(QString::asprintf("%d%%", alwaysShare()));
    m_motionField->setText(QString::asprintf("%d%%", motionShare()));
    m_eventField->setText(QString::asprintf("%d%%", eventShare()));
}

int MRVSettingForAuxViewController::eventShare() const
{
    return static_cast<int>(m_sdRatioSlider->maxValue() - alwaysShare() - motionShare());
}

// ---- motion detection

void MRVSettingForAuxViewController::updateMotionUI()
{
    const bool used = fileData() && fileData()->useMotion != 0;
    m_HDSensitivitySeg->setEnabled(used);
    m_FHDSensitivitySeg->setEnabled(used);
    m_useMotionChk->setChecked(used);
}

void MRVSettingForAuxViewController::clickUseMotionChk()
{
    if (fileData())
        storeToggled(fileData()->useMotion, m_useMotionChk->isChecked());
    updateMotionUI();
}

} // namespace marvo
