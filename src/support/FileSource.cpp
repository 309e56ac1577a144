// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "support/FileSource.h"

#include <cerrno>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace marvo {

FileSource::FileSource(const std::string& path)
{
    // Without O_NONBLOCK the opening of a named pipe would wait for its writer.
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (descriptor < 0)
        m_error = errno;
    else
        adopt(descriptor);
}

FileSource::FileSource(int descriptor)
{
    adopt(descriptor);
    if (!isOpen())
        return;
    if (const off_t position = ::lseek(descriptor, 0, SEEK_CUR); position > 0)
        m_start = static_cast<std::uint64_t>(position);
}

FileSource::~FileSource()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

void FileSource::adopt(int descriptor)
{
    struct stat facts;
    if (::fstat(descriptor, &facts) != 0)
        m_error = errno;
    else if (S_ISDIR(facts.st_mode))
        m_error = EISDIR;
    else if (!S_ISREG(facts.st_mode))
        m_error = notRegular;
    else
        m_descriptor = descriptor;
    if (isOpen())
        m_size = static_cast<std::uint64_t>(facts.st_size);
    if (m_descriptor < 0)
        ::close(descriptor);
}

std::string FileSource::error() const
{
    if (m_error == notRegular)
        return "Not a regular file";
    return m_error != 0 ? std::generic_category().message(m_error) : std::string();
}

Descriptor FileSource::duplicate() const { return Descriptor(::fcntl(m_descriptor, F_DUPFD_CLOEXEC, 0)); }

void FileSource::dropFromCache() const { ::posix_fadvise(m_descriptor, 0, 0, POSIX_FADV_DONTNEED); }

std::size_t FileSource::readAt(std::uint64_t offset, std::span<std::byte> into)
{
    std::size_t done = 0;
    while (isOpen() && done < into.size()) {
        const std::uint64_t position = m_start + offset + done;
        if (position > static_cast<std::uint64_t>(std::numeric_limits<off_t>::max()))
            break;
        const ssize_t count =
            ::pread(m_descriptor, into.data() + done, into.size() - done, static_cast<off_t>(position));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0 && m_error == 0)
            m_error = errno;
        if (count <= 0)
            break;
        done += static_cast<std::size_t>(count);
    }
    return done;
}

} // namespace marvo
