// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/ByteSource.h"
#include "support/Descriptor.h"

#include <string>

namespace marvo {

/// A regular file, opened for reading. It is read, never mapped: when a card is pulled out a read fails, but
/// a mapping would end the program.
class FileSource : public ByteSource
{
public:
    /// Opens the file without blocking. Only a regular file is accepted; a pipe, a device or a folder is
    /// refused.
    explicit FileSource(const std::string& path);
    /// Takes over an open descriptor. Reading starts at its present position.
    explicit FileSource(int descriptor);
    ~FileSource() override;
    FileSource(const FileSource&) = delete;
    FileSource& operator=(const FileSource&) = delete;

    bool isOpen() const { return m_descriptor >= 0; }
    /// Why the file could not be opened, or the first read error; empty if there was none. One line in
    /// English without a full stop, as the system words it.
    std::string error() const;
    /// The same as errno value, or notRegular; 0 if there was no error.
    int errorNumber() const { return m_error; }
    static constexpr int notRegular = -1;
    /// Size in bytes from the start of reading, taken when the file was opened; 0 if it could not be opened.
    std::uint64_t size() const { return m_size > m_start ? m_size - m_start : 0; }

    std::size_t readAt(std::uint64_t offset, std::span<std::byte> into) override;
    /// The same open file once more, for somebody else.
    Descriptor duplicate() const;
    /// Asks the system to read the medium again at the next read; it need not.
    void dropFromCache() const;

private:
    void adopt(int descriptor);

    int m_descriptor = -1;
    std::uint64_t m_start = 0;
    std::uint64_t m_size = 0;
    int m_error = 0;
};

} // namespace marvo
