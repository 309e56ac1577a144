// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace marvo {

/// Keeps the rear in step with the front while both run: how fast it has to go.
class StepKeeper
{
public:
    using Moment = std::chrono::steady_clock::time_point;

    void reset() { m_isCorrecting = false; }
    struct Advice
    {
        enum class Kind { GoOn, SetFactor, Rejoin };
        Kind kind = Kind::GoOn;
        double factor = 1; ///< of the usual rate
    };
    /// aheadMs: by how much the rear's pictures come too soon; isSure: whether that is known to the
    /// millisecond.
    Advice advise(double aheadMs, bool isSure, Moment now);

private:
    bool m_isCorrecting = false;
    Moment m_until{};
};

} // namespace marvo
