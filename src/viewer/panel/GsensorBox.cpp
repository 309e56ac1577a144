// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/panel/GsensorBox.h"

#include "controls/InterfaceScale.h"
#include "texts/Localisation.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace marvo {

namespace {

constexpr int fieldColumnWidth = 88;

QLabel* axisField(const char* name, const char* titleKey, const char* text, QWidget* parent)
{
    auto* field = new QLabel(QLatin1StringView(text), parent);
    field->setObjectName(QLatin1StringView(name));
    field->setTextFormat(Qt::PlainText);
    field->setAccessibleName(localised(titleKey));
    field->setToolTip(localised(titleKey));
    return field;
}

} // namespace

GsensorBox::GsensorBox(QWidget* graphView, QWidget* parent)
    : QWidget(parent),
      m_gsensorXField(axisField("gsensorXField", "viewer.gsensor.x", "X=+0.00", this)),
      m_gsensorYField(axisField("gsensorYField", "viewer.gsensor.y", "Y=+0.00", this)),
      m_gsensorZField(axisField("gsensorZField", "viewer.gsensor.z", "Z=+0.00", this))
{
    setObjectName(QStringLiteral("gsensorBox"));
    setAttribute(Qt::WA_StyledBackground);
    auto* fields = new QVBoxLayout;
    fields->setSpacing(4);
    auto* caption = new QLabel(localised("viewer.gsensor.caption"), this);
    caption->setProperty("caption", true);
    caption->setFixedWidth(scaledLength(fieldColumnWidth));
    fields->addStretch();
    fields->addWidget(caption);
    fields->addWidget(m_gsensorXField);
    fields->addWidget(m_gsensorYField);
    fields->addWidget(m_gsensorZField);
    fields->addStretch();

    graphView->setObjectName(QStringLiteral("graphView"));
    graphView->setAccessibleName(localised("viewer.gsensor.graph"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(12, 4, 4, 4);
    row->setSpacing(0);
    row->addWidget(graphView, 1);
    row->addLayout(fields);
}

} // namespace marvo
