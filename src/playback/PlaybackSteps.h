// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

namespace marvo {

/// How far a jump forward or back goes.
inline constexpr int jumpSeconds = 10;

} // namespace marvo
