// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "card/CardLayout.h"

#include <string>
#include <string_view>
#include <system_error>

namespace marvo {

/// The file at the card's root from which the camera sets its clock.

/// A moment of the computer's local time, of the Gregorian calendar: year 1 to 9999, hours of the whole day.
struct ClockMoment
{
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

/// The whole file: the 19 bytes "yyyy/MM/dd HH:mm:ss" without line end.
std::string clockFileBytes(const ClockMoment& moment);

/// Whether the file must be there already, as on a card, which may have been pulled out since. It must then
/// be a regular one: a card from elsewhere may hold a link to anything.
enum class ClockFilePlace { Existing, Any };

/// Writes the clock file whole or not at all, and synced; a longer one is shortened to the 19 bytes. The
/// system's error otherwise; with ClockFilePlace::Existing a missing file is one, and so is a link.
std::error_code writeClockFile(const std::string& path, const ClockMoment& moment, ClockFilePlace place);

} // namespace marvo
