// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/tabs/PercentSlider.h"

#include "lib/RangeSlider/EcoSliderAxisView.h"
#include "lib/RangeSlider/SMDoubleSlider.h"
#include "texts/Localisation.h"

#include <algorithm>
#include <QVBoxLayout>

namespace marvo {

PercentRange PercentRange::clamped(std::int64_t lo, std::int64_t hi)
{
    const auto high = std::clamp<std::int64_t>(hi, 0, 100);
    const auto low = std::clamp<std::int64_t>(lo, 0, high);
    return {static_cast<int>(low), static_cast<int>(high)};
}

PercentSlider percentSlider(const char* sliderName, const char* axisName, const char* accessibleKey)
{
    auto* view = new QWidget;
    auto* slider = new SMDoubleSlider;
    slider->setObjectName(QLatin1String(sliderName));
    slider->setAccessibleName(localised(accessibleKey));
    slider->setTrackingLoKnob(true);
    slider->setMinValue(0);
    slider->setMaxValue(100);
    slider->setAltIncrementValue(1);

    auto* axis = new EcoSliderAxisView;
    axis->setObjectName(QLatin1String(axisName));
    axis->setSizePolicy(slider->sizePolicy());

    auto* layout = new QVBoxLayout(view);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(slider);
    layout->addWidget(axis);
    view->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    return {view, slider};
}

} // namespace marvo
