// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include <sys/mman.h>
#include <unistd.h>

namespace marvo::fuzz {

/// Bytes under a path, for readers that open files; nothing reaches a disk.
class MemoryFile
{
public:
    MemoryFile(const std::uint8_t* data, std::size_t size) : m_descriptor(memfd_create("fuzz", MFD_CLOEXEC))
    {
        while (size > 0) {
            const ssize_t count = ::write(m_descriptor, data, size);
            if (count <= 0)
                break;
            data += count;
            size -= static_cast<std::size_t>(count);
        }
    }
    ~MemoryFile() { ::close(m_descriptor); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    std::string path() const { return "/proc/self/fd/" + std::to_string(m_descriptor); }

private:
    int m_descriptor;
};

} // namespace marvo::fuzz
