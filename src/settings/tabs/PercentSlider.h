// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

class QWidget;

namespace marvo {

class SMDoubleSlider;

/// The places of a percent slider's two knobs: 0 <= lo <= hi <= 100.
struct PercentRange
{
    int lo = 0;
    int hi = 0;

    /// The nearest range to two numbers of any size; the high knob is placed first.
    static PercentRange clamped(std::int64_t lo, std::int64_t hi);
    bool operator==(const PercentRange&) const = default;
};

/// A range slider from 0 to 100, moved by the keys in steps of 1, and its scale below it, exactly as wide.
struct PercentSlider
{
    QWidget* view;
    SMDoubleSlider* slider;
};

/// Made with the object names that the slider and its scale are known by.
PercentSlider percentSlider(const char* sliderName, const char* axisName, const char* accessibleKey);

} // namespace marvo
