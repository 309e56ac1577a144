// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/OutputFile.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace marvo::demo {

namespace {

std::string temporaryBeside(const std::string& path)
{
    // Short and hidden, whatever the length of the final name; no reader of a card takes it for a recording.
    static std::atomic<unsigned> counter{0};
    const std::size_t slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
    return folder + ".marvo-" + std::to_string(::getpid()) + "-" + std::to_string(counter++) + ".part";
}

} // namespace

OutputFile::OutputFile(std::string path) : m_path(std::move(path))
{
    // A name that is taken is a leftover of a process that was killed and had our number: pass it by.
    for (int attempt = 0; attempt < 100; ++attempt) {
        m_temporary = temporaryBeside(m_path);
        m_descriptor = ::open(m_temporary.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (m_descriptor >= 0)
            return;
        if (errno != EEXIST)
            break;
    }
    fail(errno);
}

OutputFile::~OutputFile()
{
    if (m_descriptor < 0)
        return;
    ::close(m_descriptor);
    ::unlink(m_temporary.c_str());
}

void OutputFile::fail(int error)
{
    if (m_error == 0)
        m_error = error == 0 ? EIO : error;
}

void OutputFile::write(std::span<const std::uint8_t> bytes)
{
    writeAt(m_size, bytes);
    m_size += static_cast<std::int64_t>(bytes.size());
}

void OutputFile::write(std::string_view text)
{
    write(std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()));
}

void OutputFile::overwrite(std::int64_t offset, std::span<const std::uint8_t> bytes)
{
    writeAt(offset, bytes);
}

void OutputFile::writeAt(std::int64_t offset, std::span<const std::uint8_t> bytes)
{
    while (!bytes.empty() && m_error == 0) {
        const ssize_t count = ::pwrite(m_descriptor, bytes.data(), bytes.size(), offset);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return fail(count < 0 ? errno : ENOSPC);
        bytes = bytes.subspan(static_cast<std::size_t>(count));
        offset += count;
    }
}

std::optional<std::string> OutputFile::commit()
{
    if (m_error == 0 && ::fdatasync(m_descriptor) != 0 && errno != EINVAL && errno != ENOSYS)
        fail(errno);
    if (m_descriptor >= 0) {
        // Some file systems tell only here that the disk is full.
        if (::close(std::exchange(m_descriptor, -1)) != 0)
            fail(errno);
        if (m_error == 0 && ::rename(m_temporary.c_str(), m_path.c_str()) != 0)
            fail(errno);
        if (m_error != 0)
            ::unlink(m_temporary.c_str());
    }
    if (m_error == 0)
        return std::nullopt;
    return "cannot write '" + m_path + "': " + std::generic_category().message(m_error);
}

} // namespace marvo::demo
