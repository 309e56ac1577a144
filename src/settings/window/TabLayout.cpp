// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/window/TabLayout.h"

#include "controls/SegmentedControl.h"
#include "texts/Localisation.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

namespace marvo {

QGroupBox* titledBox(const char* name, const char* titleKey, QWidget* parent)
{
    auto* box = new QGroupBox(localised(titleKey), parent);
    box->setObjectName(QLatin1String(name));
    auto* layout = new QVBoxLayout(box);
    layout->setSpacing(8);
    return box;
}

QGroupBox* titledBoxWith(const char* name, const char* titleKey, std::initializer_list<QWidget*> contents)
{
    auto* box = titledBox(name, titleKey, nullptr);
    for (QWidget* content : contents)
        box->layout()->addWidget(content);
    static_cast<QVBoxLayout*>(box->layout())->addStretch();
    return box;
}

QLabel* captionLabel(const char* name, const char* key, QWidget* buddy)
{
    auto* label = new QLabel(localised(key));
    label->setObjectName(QLatin1String(name));
    label->setBuddy(buddy);
    return label;
}

QLabel* guideLabel(const char* name, const char* key)
{
    auto* label = new QLabel(localised(key));
    label->setObjectName(QLatin1String(name));
    label->setProperty("guide", true);
    label->setWordWrap(true);
    return label;
}

QCheckBox* checkBox(const char* name, const char* key)
{
    auto* box = new QCheckBox(localised(key));
    box->setObjectName(QLatin1String(name));
    return box;
}

SegmentedControl* segmentedControl(const char* name, const char* accessibleKey, const QStringList& labels)
{
    auto* control = new SegmentedControl;
    control->setObjectName(QLatin1String(name));
    control->setAccessibleName(localised(accessibleKey));
    control->setLabels(labels);
    return control;
}

QComboBox* comboBox(const char* name, const char* accessibleKey, const QStringList& items)
{
    auto* control = new QComboBox;
    control->setObjectName(QLatin1String(name));
    control->setAccessibleName(localised(accessibleKey));
    control->addItems(items);
    control->setCurrentIndex(-1);
    return control;
}

QStringList localisedList(std::initializer_list<const char*> keys)
{
    QStringList texts;
    for (const char* key : keys)
        texts.append(localised(key));
    return texts;
}

QString labelWith(const char* format, const char* key)
{
    return QString::fromLatin1(format).replace(QLatin1String("%@"), localised(key));
}

} // namespace marvo
