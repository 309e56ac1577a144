// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>

namespace marvo {

/// A time within a recording as people read it: "0:07", "12:30", "1:02:03".
QString playTimeText(std::int64_t timeMs);

} // namespace marvo
