// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/ClockFile.h"

#include "support/AtomicFile.h"
#include "support/System.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <sys/stat.h>

namespace marvo {

std::string clockFileBytes(const ClockMoment& moment)
{
    std::array<char, 96> text{};
    std::snprintf(text.data(), text.size(), "%04d/%02d/%02d %02d:%02d:%02d", moment.year, moment.month,
                  moment.day, moment.hour, moment.minute, moment.second);
    return text.data();
}

std::error_code writeClockFile(const std::string& path, const ClockMoment& moment, ClockFilePlace place)
{
    if (place == ClockFilePlace::Existing) {
        // A removed card may leave its mount folder behind.
        struct stat status;
        if (::lstat(path.c_str(), &status) != 0)
            return systemError();
        // The user was not asked about a link's target.
        if (!S_ISREG(status.st_mode))
            return std::make_error_code(std::errc::operation_not_permitted);
    }
    return writeFileAtomically(path, clockFileBytes(moment));
}

} // namespace marvo
