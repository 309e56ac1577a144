// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/ByteSource.h"

#include <string>

namespace marvo {

/// A regular file, opened for reading. It is read, never mapped: of a card that is pulled out the reads fail,
/// where a mapping would end the program.
class FileSource : public ByteSource
{
public:
    /// Opens the file without ever waiting for it; only a regular file is taken (a pipe, a device or a folder
    /// of the same name is refused).
    explicit FileSource(const std::string& path);
    /// Takes over a descriptor that is open already, from its present position on.
    explicit FileSource(int descriptor);
    ~FileSource() override;
    FileSource(const FileSource&) = delete;
    FileSource& operator=(const FileSource&) = delete;

    bool isOpen() const { return m_descriptor >= 0; }
    /// Why the file could not be opened, or else the first reading fault; empty while all is well. One line
    /// in English without a full stop, as the system words it.
    std::string error() const;
    /// The same as the system's number (errno), or notRegular; 0 while all is well.
    int errorNumber() const { return m_error; }
    static constexpr int notRegular = -1;
    /// Bytes from the beginning of the reading on, when the file was opened; 0 when it could not be.
    std::uint64_t size() const { return m_size > m_start ? m_size - m_start : 0; }

    std::size_t readAt(std::uint64_t offset, std::span<std::byte> into) override;

private:
    void adopt(int descriptor);

    int m_descriptor = -1;
    std::uint64_t m_start = 0;
    std::uint64_t m_size = 0;
    int m_error = 0;
};

} // namespace marvo
