// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "support/System.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <limits>
#include <string>
#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>

namespace marvo {

std::error_code systemError() { return {errno, std::generic_category()}; }

int openMemoryFile(const char* name) { return ::memfd_create(name, MFD_CLOEXEC); }

namespace {

std::uint64_t leftOfOwnLimit()
{
    rlimit limit{};
    std::uint64_t pages = 0;
    if (::getrlimit(RLIMIT_AS, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY ||
        !(std::ifstream("/proc/self/statm") >> pages))
        return std::numeric_limits<std::uint64_t>::max();
    const std::uint64_t used = pages * static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE));
    return limit.rlim_cur - std::min<std::uint64_t>(limit.rlim_cur, used);
}

} // namespace

std::optional<std::uint64_t> availableMemory()
{
    std::ifstream facts("/proc/meminfo");
    for (std::string name; facts >> name; facts.ignore(std::numeric_limits<std::streamsize>::max(), '\n')) {
        std::uint64_t kibibytes = 0;
        if (name == "MemAvailable:" && facts >> kibibytes)
            return std::min(kibibytes * 1024, leftOfOwnLimit());
    }
    return std::nullopt;
}

} // namespace marvo
