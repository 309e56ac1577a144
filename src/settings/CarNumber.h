// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace marvo {

/// The longest vehicle number that the camera takes, in characters.
inline constexpr int carNumberLength = 8;

/// What the camera can keep of a vehicle number as typed: its ASCII letters and digits in order, with their
/// case, up to carNumberLength of them.
QString keptCarNumber(QStringView typed);

} // namespace marvo
