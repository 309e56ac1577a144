// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

class QWidget;

namespace marvo {

class SettingsTabView;
struct SelectedCard;

/// One segment of the settings window's tab bar.
struct SettingsTab
{
    enum class Lifetime {
        Visit, ///< made anew each time it is shown
        Window ///< made once and shown again
    };

    const char* labelKey; ///< of its segment
    const char* titleKey; ///< of the tab itself
    std::function<SettingsTabView*(QWidget* parent, const SelectedCard& card)> create;
    Lifetime lifetime = Lifetime::Visit;
};

/// The tabs of a settings window, in the order of their segments.
struct SettingsTabTable
{
    std::vector<SettingsTab> always; ///< of every camera: those over the settings record, and the driving log
    std::vector<SettingsTab>
        withObd; ///< beyond these of cameras with an OBD adapter: its settings and its log
};

} // namespace marvo
