// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace marvo {

class Disks;

/// What the clock dialog needs to know of the card in the reader.
struct ClockCard
{
    std::optional<std::string> clockFile; ///< the clock file on a card
    std::optional<std::string> folder;    ///< of the camera's card, with or without such a file
};

/// Asks the system for its volumes, which can be slow: not for the main thread.
ClockCard findClockCard(const Disks& disks);

} // namespace marvo
