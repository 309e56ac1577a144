// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QSize>

namespace marvo {

/// The result of a size step.
struct WindowStep
{
    enum class Action { Nothing, SetFrame, EnterFullScreen, LeaveFullScreen };
    Action action = Action::Nothing;
    QRect frame; ///< of SetFrame
};

/// One step of a fifth of the minimum size: up (step 1), down (-1), or only back to the windowed state and at
/// least the minimum size (0). The lower left corner stays, except where a grown window would leave the
/// screen.
WindowStep windowStep(int step, const QRect& screen, const QRect& window, const QSize& minimum,
                      bool isFullScreen);

} // namespace marvo
