// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/tabs/GsensorSensitivityBox.h"

#include "controls/SegmentedControl.h"
#include "settings/FileData.h"
#include "settings/MRVValidator.h"
#include "settings/tabs/ThresholdFormat.h"
#include "settings/window/TabLayout.h"
#include "texts/Localisation.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

#include <algorithm>

namespace marvo {

const GsensorSensitivity drivingSensitivity = {
    "boxOfGsensorSensitivityDriving",
    "setting.basic.driving_impact_sensitivity",
    "gsensorSensitivityDrivingSeg",
    {"gsensorSensitivityThresholdXDrivingField", "gsensorSensitivityThresholdYDrivingField",
     "gsensorSensitivityThresholdZDrivingField"},
    {&_FILEDATA::drivingThresholdX, &_FILEDATA::drivingThresholdY, &_FILEDATA::drivingThresholdZ},
    {{{65, 90, 60}, {60, 80, 55}, {55, 70, 50}, {50, 60, 45}, {45, 50, 40}}},
};

const GsensorSensitivity parkingSensitivity = {
    "boxOfGsensorSensitivityParking",
    "setting.basic.parking_impact_sensitivity",
    "gsensorSensitivityParkingSeg",
    {"gsensorSensitivityThresholdXParkingField", "gsensorSensitivityThresholdYParkingField",
     "gsensorSensitivityThresholdZParkingField"},
    {&_FILEDATA::parkingThresholdX, &_FILEDATA::parkingThresholdY, &_FILEDATA::parkingThresholdZ},
    {{{25, 25, 25}, {20, 20, 20}, {15, 15, 15}, {12, 12, 12}, {8, 8, 8}}},
};

int GsensorSensitivity::findGsensorThresholdIndexByX(const GsensorThresholds& wanted) const
{
    return static_cast<int>(std::find(presets.begin(), presets.end(), wanted) - presets.begin());
}
static_assert(std::tuple_size_v<decltype(GsensorSensitivity::presets)> == GsensorSensitivity::customSegment);

GsensorSensitivityBox::GsensorSensitivityBox(const GsensorSensitivity& sensitivity, QWidget* parent)
    : QGroupBox(localised(sensitivity.titleKey), parent), m_sensitivity(sensitivity)
{
    setObjectName(QLatin1String(sensitivity.box));
    m_control = segmentedControl(sensitivity.control, sensitivity.titleKey,
                                 {labelWith("1(%@)", "insensitive"), QStringLiteral("2"), QStringLiteral("3"),
                                  QStringLiteral("4"), labelWith("5(%@)", "sensitive"),
                                  localised("setting.basic.customize")});
    connect(m_control, &SegmentedControl::segmentClicked, this,
            &GsensorSensitivityBox::updateGsensorThreshold);

    auto* fields = new QHBoxLayout;
    fields->setSpacing(8);
    for (std::size_t axis = 0; axis < m_fields.size(); ++axis) {
        const QString name = QString(QChar(u'X' + static_cast<char16_t>(axis)));
        auto* field = new QLineEdit;
        field->setObjectName(QLatin1String(sensitivity.fields[axis]));
        field->setAccessibleName(title() + QLatin1Char(' ') + name);
        field->setValidator(new ThresholdFormat(field));
        field->setAlignment(Qt::AlignRight);
        field->setMinimumWidth(field->fontMetrics().horizontalAdvance(QStringLiteral("000.000")));
        auto* caption = new QLabel(localised("setting.basic.axis_fmt").arg(name));
        caption->setBuddy(field);
        if (axis > 0)
            fields->addSpacing(12);
        fields->addWidget(caption);
        fields->addWidget(field, 1);
        m_fields[axis] = field;
    }

    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(8);
    layout->addWidget(m_control);
    layout->addLayout(fields);
}

void GsensorSensitivityBox::displayThresholds(const _FILEDATA& record)
{
    GsensorThresholds stored{};
    for (std::size_t axis = 0; axis < stored.size(); ++axis) {
        stored[axis] = record.*m_sensitivity.thresholds[axis];
        m_fields[axis]->setText(thresholdText(stored[axis]));
    }
    m_control->setSelectedSegment(m_sensitivity.findGsensorThresholdIndexByX(stored));
    updateGsensorThreshold();
}

void GsensorSensitivityBox::storeThresholds(_FILEDATA& record) const
{
    for (std::size_t axis = 0; axis < m_fields.size(); ++axis) {
        std::int32_t& stored = record.*m_sensitivity.thresholds[axis];
        if (const QString text = m_fields[axis]->text(); text != thresholdText(stored))
            stored = storedThreshold(text);
    }
}

std::optional<QString> GsensorSensitivityBox::validateUserInput()
{
    if (m_control->selectedSegment() != GsensorSensitivity::customSegment)
        return std::nullopt;
    for (QLineEdit* field : m_fields) {
        const auto message = MRVValidator::validateGsensorThreshold(field->text());
        if (!message)
            continue;
        // A threshold from the card can be out of range while the sensor is off: enable the field for
        // correction.
        field->setEnabled(true);
        // Queued: the click or key being handled would take the focus away again.
        QMetaObject::invokeMethod(
            field,
            [field] {
                field->setFocus();
                field->selectAll();
            },
            Qt::QueuedConnection);
        return message;
    }
    return std::nullopt;
}

void GsensorSensitivityBox::setSensor(Sensor sensor)
{
    m_sensor = sensor;
    updateEnabled();
}

void GsensorSensitivityBox::updateGsensorThreshold()
{
    const int segment = m_control->selectedSegment();
    if (segment >= 0 && segment < GsensorSensitivity::customSegment) {
        const GsensorThresholds& preset = m_sensitivity.presets[static_cast<std::size_t>(segment)];
        for (std::size_t axis = 0; axis < m_fields.size(); ++axis)
            m_fields[axis]->setText(thresholdText(preset[axis]));
    }
    updateEnabled();
}

void GsensorSensitivityBox::updateEnabled()
{
    const bool isOn = m_sensor == Sensor::On;
    m_control->setEnabled(isOn);
    for (QLineEdit* field : m_fields)
        field->setEnabled(isOn && m_control->selectedSegment() == GsensorSensitivity::customSegment);
}

} // namespace marvo
