// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace marvo {

class Disks;

/// What the card in the reader offers to the clock dialog.
struct ClockCard
{
    std::optional<std::string> clockFile; ///< the file that a card holds already
    std::optional<std::string> folder;    ///< of the camera's card, be there such a file on it or not
};

/// Asks the system for its volumes, which may take a moment: not for the main thread.
ClockCard findClockCard(const Disks& disks);

} // namespace marvo
