// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "support/System.h"

#include <cerrno>
#include <fstream>
#include <limits>
#include <string>
#include <sys/mman.h>

namespace marvo {

std::error_code systemError() { return {errno, std::generic_category()}; }

int openMemoryFile(const char* name) { return ::memfd_create(name, MFD_CLOEXEC); }

std::optional<std::uint64_t> availableMemory()
{
    std::ifstream facts("/proc/meminfo");
    for (std::string name; facts >> name; facts.ignore(std::numeric_limits<std::streamsize>::max(), '\n')) {
        std::uint64_t kibibytes = 0;
        if (name == "MemAvailable:" && facts >> kibibytes)
            return kibibytes * 1024;
    }
    return std::nullopt;
}

} // namespace marvo
