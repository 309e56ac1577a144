// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "drives/player/StepKeeper.h"

#include <algorithm>
#include <cmath>

namespace marvo {

namespace {
constexpr double nearEnoughMs = 5;
/// More than this takes too long to make up for.
constexpr double tooFarMs = 120;
constexpr double rateChange = 0.05;
} // namespace

StepKeeper::Advice StepKeeper::advise(double aheadMs, bool isSure, Moment now)
{
    using Kind = Advice::Kind;
    if (m_isCorrecting) {
        if (now < m_until)
            return {};
        m_isCorrecting = false;
        return {Kind::SetFactor, 1};
    }
    if (!isSure || std::abs(aheadMs) <= nearEnoughMs)
        return {};
    if (std::abs(aheadMs) > tooFarMs)
        return {Kind::Rejoin, 1};
    m_isCorrecting = true;
    const std::chrono::duration<double, std::milli> length(std::abs(aheadMs) / rateChange);
    m_until = now + std::chrono::duration_cast<std::chrono::steady_clock::duration>(length);
    return {Kind::SetFactor, aheadMs > 0 ? 1 - rateChange : 1 + rateChange};
}

} // namespace marvo
