// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/WritableVolume.h"

#include "support/System.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace marvo {

std::size_t DescriptorVolume::readAt(std::uint64_t offset, std::span<std::byte> into)
{
    std::size_t done = 0;
    while (done < into.size()) {
        const ssize_t count =
            ::pread(m_descriptor, into.data() + done, into.size() - done, static_cast<off_t>(offset + done));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            break;
        done += static_cast<std::size_t>(count);
    }
    return done;
}

std::error_code DescriptorVolume::writeAt(std::uint64_t offset, std::span<const std::byte> bytes)
{
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count = ::pwrite(m_descriptor, bytes.data() + done, bytes.size() - done,
                                       static_cast<off_t>(offset + done));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return systemError();
        if (count == 0)
            return std::make_error_code(std::errc::no_space_on_device);
        done += static_cast<std::size_t>(count);
    }
    return {};
}

std::error_code DescriptorVolume::sync()
{
    if (::fsync(m_descriptor) != 0)
        return systemError();
    // Drops the cache: otherwise the check would compare memory with memory.
    ::posix_fadvise(m_descriptor, 0, 0, POSIX_FADV_DONTNEED);
    return {};
}

bool isWriteProtection(const std::error_code& error)
{
    return error == std::errc::read_only_file_system || error == std::errc::operation_not_permitted ||
           error == std::errc::permission_denied;
}

} // namespace marvo
