// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <system_error>

namespace marvo {

/// The error of the system call that just failed (errno), in std::generic_category.
std::error_code systemError();

/// A new empty file that exists in memory only and goes when its descriptor is closed. The name is for a list
/// of open files. The descriptor is the caller's to close; -1 with errno set when there is none.
int openMemoryFile(const char* name);

/// Bytes that the system can give without taking them from running programs (MemAvailable of Linux), or that
/// are left of the process's own limit (RLIMIT_AS) if those are fewer; absent where the system does not tell.
/// A process may use more than the former, but is ended when there is no more.
std::optional<std::uint64_t> availableMemory();

} // namespace marvo
