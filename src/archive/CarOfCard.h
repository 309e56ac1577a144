// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace marvo {

/// The car's folder to propose for a card: the one that the archive remembers for it, else the vehicle number
/// of the settings on the card; empty when there is neither. The archive need not exist yet.
std::string proposedCar(const std::string& card, const std::string& archive);

} // namespace marvo
