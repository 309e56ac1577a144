// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "capture/CaptureFile.h"

#include "support/AtomicFile.h"
#include "support/Log.h"
#include "support/System.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace marvo {

namespace {

std::error_code writeAll(int file, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = ::write(file, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return count < 0 ? systemError() : std::make_error_code(std::errc::io_error);
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return ::lseek(file, 0, SEEK_SET) == 0 ? std::error_code() : systemError();
}

bool isOwnFile(const struct stat& status) { return S_ISREG(status.st_mode) && status.st_uid == ::geteuid(); }

/// Gives a finished file its name and never touches a file that is not ours. In a folder like /tmp nobody
/// else can remove our file, so our own old file may be replaced. A free name may have been taken since:
/// linking notices that, renaming would not.
std::error_code giveName(const std::string& temporary, const std::string& path)
{
    struct stat status;
    if (::lstat(path.c_str(), &status) == 0) {
        if (!isOwnFile(status))
            return std::make_error_code(std::errc::file_exists);
        return ::rename(temporary.c_str(), path.c_str()) == 0 ? std::error_code() : systemError();
    }
    if (errno != ENOENT || ::link(temporary.c_str(), path.c_str()) != 0)
        return systemError();
    ::unlink(temporary.c_str());
    return {};
}

/// A fresh file under the name, open; or the error, with nothing left behind.
CaptureFile writeFresh(const std::string& path, std::string_view bytes, std::error_code& error)
{
    std::string temporary = path + ".XXXXXX";
    CaptureFile file(path, ::mkostemp(temporary.data(), O_CLOEXEC));
    if (file.descriptor() < 0) {
        error = systemError();
        return file;
    }
    error = writeAll(file.descriptor(), bytes);
    if (!error)
        error = giveName(temporary, path);
    if (error)
        ::unlink(temporary.c_str());
    return file;
}

} // namespace

CaptureFile::~CaptureFile()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

std::error_code CaptureFile::copyTo(const std::string& target) const
{
    if (m_descriptor < 0)
        return std::make_error_code(std::errc::no_such_file_or_directory);
    AtomicFile copy;
    if (const std::error_code error = copy.open(target, AtomicFile::Existing::Keep))
        return error;
    std::array<char, 65536> piece;
    off_t offset = 0;
    while (true) {
        const ssize_t count = ::pread(m_descriptor, piece.data(), piece.size(), offset);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return systemError();
        if (count == 0)
            return copy.commit();
        if (const std::error_code error = copy.write({piece.data(), static_cast<std::size_t>(count)}))
            return error;
        offset += count;
    }
}

bool CaptureStore::isNameOurs() const
{
    struct stat status;
    return ::lstat(m_path.c_str(), &status) == 0 ? isOwnFile(status) : errno == ENOENT;
}

std::error_code CaptureStore::usePrivateFolder()
{
    std::string folder = m_path + "-XXXXXX";
    if (!::mkdtemp(folder.data()))
        return systemError();
    m_privatePath = folder + m_path.substr(m_path.rfind('/'));
    logLine(m_path + " is a link or another user's; captured pictures go to " + m_privatePath);
    return {};
}

CaptureFile CaptureStore::write(std::string_view bytes)
{
    const std::scoped_lock lock(m_mutex);
    std::error_code error;
    if (m_privatePath.empty() && !isNameOurs())
        error = usePrivateFolder();
    CaptureFile file;
    if (!error)
        file = writeFresh(path(), bytes, error);
    if (error == std::errc::file_exists && m_privatePath.empty()) { // the name was taken in this moment
        error = usePrivateFolder();
        if (!error)
            file = writeFresh(path(), bytes, error);
    }
    if (!error)
        return file;
    logLine("cannot write the captured picture to " + path() + ": " + error.message());
    return openLast();
}

CaptureFile CaptureStore::last()
{
    const std::scoped_lock lock(m_mutex);
    return openLast();
}

CaptureFile CaptureStore::openLast() const
{
    CaptureFile file(path(),
                     ::open(path().c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status;
    if (file.descriptor() >= 0 && (::fstat(file.descriptor(), &status) != 0 || !isOwnFile(status)))
        return CaptureFile(path(), -1);
    return file;
}

} // namespace marvo
