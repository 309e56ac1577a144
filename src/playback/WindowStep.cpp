// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "playback/WindowStep.h"

#include <algorithm>

namespace marvo {

namespace {
constexpr int stepsInMinimum = 5;
constexpr int screenHeightMargin = 100;
} // namespace

WindowStep windowStep(int step, const QRect& screen, const QRect& window, const QSize& minimum,
                      bool isFullScreen)
{
    using Action = WindowStep::Action;
    if (isFullScreen)
        return {step > 0 ? Action::Nothing : Action::LeaveFullScreen, {}};

    QSize size = window.size() + step * minimum / stepsInMinimum;
    if (step > 0 && (size.width() > screen.width() || size.height() > screen.height() - screenHeightMargin))
        return {Action::EnterFullScreen, {}};
    if (size.width() < minimum.width() || size.height() < minimum.height())
        size = minimum;
    if (size == window.size())
        return {};

    QPoint origin(window.left(), window.top() + window.height() - size.height());
    if (size.height() > window.height())
        origin.setY(std::max(origin.y(), screen.top()));
    if (size.width() > window.width())
        origin.setX(
            std::max(std::min(origin.x(), screen.left() + screen.width() - size.width()), screen.left()));
    return {Action::SetFrame, QRect(origin, size)};
}

} // namespace marvo
