// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "faults/FaultySystem.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdarg>

namespace marvo::test {

FaultySystem faultySystem;

namespace {

enum class rateChange { Growing, Other };

/// False when the change is to fail, with errno.
bool permitted(rateChange change)
{
    FaultySystem& system = faultySystem;
    const int number = ++system.changes;
    if (number == system.signalledChange)
        ::kill(::getpid(), system.signal);
    if (number == system.failingChange) {
        errno = EIO;
        return false;
    }
    if (change == rateChange::Growing && system.fullFrom != 0 && number > system.fullFrom) {
        errno = ENOSPC;
        return false;
    }
    return true;
}

/// What of a write is still done.
std::size_t permittedSize(std::size_t size)
{
    return faultySystem.changes == faultySystem.fullFrom && size > 1 ? size / 2 : size;
}

} // namespace

} // namespace marvo::test

using namespace marvo::test;

extern "C" {

ssize_t pread(int file, void* into, size_t size, off_t offset)
{
    if (faultySystem.readableUpTo) {
        const std::uint64_t end = *faultySystem.readableUpTo;
        const auto from = static_cast<std::uint64_t>(offset);
        if (from >= end) {
            errno = faultySystem.readError;
            return faultySystem.readError != 0 ? -1 : 0;
        }
        size = std::min<std::size_t>(size, end - from);
    }
    return ::syscall(SYS_pread64, file, into, size, offset);
}

ssize_t write(int file, const void* bytes, size_t size)
{
    return permitted(rateChange::Growing) ? ::syscall(SYS_write, file, bytes, permittedSize(size)) : -1;
}

ssize_t pwrite(int file, const void* bytes, size_t size, off_t offset)
{
    return permitted(rateChange::Growing) ? ::syscall(SYS_pwrite64, file, bytes, permittedSize(size), offset)
                                          : -1;
}

int openat(int folder, const char* name, int flags, ...)
{
    va_list rest;
    va_start(rest, flags);
    const unsigned int mode = (flags & O_CREAT) != 0 ? va_arg(rest, unsigned int) : 0;
    va_end(rest);
    if ((flags & O_CREAT) != 0 && !permitted(rateChange::Growing))
        return -1;
    if ((flags & O_CREAT) != 0 && faultySystem.foldersClosed) {
        errno = EACCES;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_openat, folder, name, flags, mode));
}

int fsync(int file)
{
    return permitted(rateChange::Other) ? static_cast<int>(::syscall(SYS_fsync, file)) : -1;
}

int ftruncate(int file, off_t size) noexcept
{
    return permitted(rateChange::Other) ? static_cast<int>(::syscall(SYS_ftruncate, file, size)) : -1;
}

int fchmod(int file, mode_t mode) noexcept
{
    return permitted(rateChange::Other) ? static_cast<int>(::syscall(SYS_fchmod, file, mode)) : -1;
}

int renameat(int from, const char* old, int to, const char* name) noexcept
{
    return permitted(rateChange::Other) ? static_cast<int>(::syscall(SYS_renameat, from, old, to, name)) : -1;
}

int renameat2(int from, const char* old, int to, const char* name, unsigned int flags) noexcept
{
    return permitted(rateChange::Other)
               ? static_cast<int>(::syscall(SYS_renameat2, from, old, to, name, flags))
               : -1;
}

int mkdirat(int folder, const char* name, mode_t mode) noexcept
{
    return permitted(rateChange::Growing) ? static_cast<int>(::syscall(SYS_mkdirat, folder, name, mode)) : -1;
}

int futimens(int file, const timespec times[2]) noexcept
{
    return permitted(rateChange::Other) ? static_cast<int>(::syscall(SYS_utimensat, file, nullptr, times, 0))
                                        : -1;
}

int unlinkat(int folder, const char* name, int flags) noexcept
{
    // Only counted: a process can end here, too.
    permitted(rateChange::Other);
    return static_cast<int>(::syscall(SYS_unlinkat, folder, name, flags));
}

} // extern "C"
