// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "support/AtomicFile.h"

#include "support/Descriptor.h"
#include "support/System.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <utility>

namespace marvo {

namespace {

void closeAndForget(int& descriptor)
{
    if (descriptor >= 0)
        ::close(std::exchange(descriptor, -1));
}

/// At an offset, or where the descriptor stands.
std::error_code writeAll(int descriptor, std::string_view bytes, std::optional<std::int64_t> offset = {})
{
    while (!bytes.empty()) {
        const ssize_t count = offset ? ::pwrite(descriptor, bytes.data(), bytes.size(), *offset)
                                     : ::write(descriptor, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return systemError();
        if (count == 0)
            return std::make_error_code(std::errc::io_error);
        bytes.remove_prefix(static_cast<std::size_t>(count));
        if (offset)
            *offset += count;
    }
    return {};
}

/// The whole content of a file that is open for reading.
std::error_code readAll(int descriptor, std::string& content)
{
    content.clear();
    std::array<char, 65536> piece;
    while (true) {
        const ssize_t count =
            ::pread(descriptor, piece.data(), piece.size(), static_cast<off_t>(content.size()));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return systemError();
        if (count == 0)
            return {};
        content.append(piece.data(), static_cast<std::size_t>(count));
    }
}

/// Some file systems cannot sync a folder and say so; that is no fault.
std::error_code syncFolder(int folder)
{
    const Descriptor readable(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!readable || ::fsync(*readable) == 0 || errno == EINVAL || errno == ENOSYS)
        return {};
    return systemError();
}

/// Gives a file the owner and the permissions of another one. Both may be refused: only the administrator
/// gives files away, and a card's file system has no permissions to change.
std::error_code takeOver(const struct stat& from, int descriptor)
{
    struct stat now;
    if (::fstat(descriptor, &now) != 0)
        return systemError();
    const bool sameOwner = now.st_uid == from.st_uid && now.st_gid == from.st_gid;
    // Some mounts know no owners and permissions at all.
    const auto isRefused = [] { return errno == EPERM || errno == ENOSYS || errno == ENOTSUP; };
    if (!sameOwner && ::fchown(descriptor, from.st_uid, from.st_gid) != 0 && !isRefused())
        return systemError();
    if (::fchmod(descriptor, from.st_mode & 07777) != 0 && !isRefused())
        return systemError();
    return {};
}

constexpr std::string_view temporaryPrefix = ".marvo-";
constexpr std::string_view hexDigits = "0123456789abcdef";
constexpr std::size_t temporaryDigits = 16;

std::string unpredictableName()
{
    std::uint64_t number = 0;
    if (::getentropy(&number, sizeof number) != 0)
        return {};
    std::string name(temporaryPrefix);
    for (std::size_t digit = temporaryDigits; digit-- > 0;)
        name += hexDigits[number >> 4 * digit & 15];
    return name;
}

bool isNameOfTemporary(std::string_view name)
{
    return name.size() == temporaryPrefix.size() + temporaryDigits && name.starts_with(temporaryPrefix) &&
           name.find_first_not_of(hexDigits, temporaryPrefix.size()) == std::string_view::npos;
}

/// Locks a file for as long as it stays open; false when another process holds the lock or the file system
/// has no locks.
bool lockAlone(int descriptor) { return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0; }

/// Removes temporaries of processes that died while they wrote into the folder.
void removeAbandonedTemporaries(int folder)
{
    const int listed = ::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    DIR* entries = listed >= 0 ? ::fdopendir(listed) : nullptr;
    if (entries == nullptr) {
        if (listed >= 0)
            ::close(listed);
        return;
    }
    while (const dirent* entry = ::readdir(entries)) {
        if (!isNameOfTemporary(entry->d_name))
            continue;
        const Descriptor file(
            ::openat(folder, entry->d_name, O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY));
        struct stat status;
        if (file && ::fstat(*file, &status) == 0 && S_ISREG(status.st_mode) && lockAlone(*file))
            ::unlinkat(folder, entry->d_name, 0);
    }
    ::closedir(entries);
}

/// The final target of a link, whether it exists or not. Only the last component is resolved; a path that is
/// no link is returned unchanged.
std::error_code followLinks(std::string& path)
{
    for (int links = 0; links < 40; ++links) {
        std::string target(4096, '\0');
        const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
        if (length < 0)
            return errno == EINVAL || errno == ENOENT ? std::error_code() : systemError();
        target.resize(static_cast<std::size_t>(length));
        if (target.starts_with('/'))
            path = target;
        else
            path.replace(path.rfind('/') + 1, std::string::npos, target);
    }
    return std::make_error_code(std::errc::too_many_symbolic_link_levels);
}

/// True for errors by which a folder refuses a new or a replaced file although an existing file in it may be
/// writable.
bool isRefusal(const std::error_code& error)
{
    return error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
           error == std::errc::read_only_file_system || error == std::errc::device_or_resource_busy ||
           error == std::errc::text_file_busy;
}

} // namespace

std::error_code AtomicFile::open(const std::string& path, Existing existing)
{
    discard();
    m_existing = existing;
    m_error = stage(path);
    if (m_error) {
        const std::error_code error = m_error;
        discard();
        m_error = error;
    }
    return m_error;
}

std::error_code AtomicFile::stage(const std::string& path)
{
    struct stat status;
    if (m_existing == Existing::Keep && ::lstat(path.c_str(), &status) == 0)
        return std::make_error_code(std::errc::file_exists);
    const bool exists = ::stat(path.c_str(), &status) == 0;
    if (!exists && errno != ENOENT)
        return systemError();
    if (exists && S_ISDIR(status.st_mode))
        return std::make_error_code(std::errc::is_a_directory);
    m_targetIsRegular = !exists || S_ISREG(status.st_mode);

    std::string target = path;
    if (m_targetIsRegular) {
        if (const std::error_code error = followLinks(target))
            return error;
    }
    const std::size_t slash = target.rfind('/');
    m_name = target.substr(slash == std::string::npos ? 0 : slash + 1);
    if (m_name.empty())
        return std::make_error_code(path.empty() ? std::errc::no_such_file_or_directory
                                                 : std::errc::is_a_directory);
    const std::string folder = slash == std::string::npos ? "." : target.substr(0, slash + 1);
    m_folder = ::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    if (m_folder < 0)
        return systemError();
    if (exists && ::faccessat(m_folder, m_name.c_str(), W_OK, AT_EACCESS) != 0)
        return systemError();

    std::error_code error;
    if (m_targetIsRegular) {
        error = stageBeside(exists ? &status : nullptr);
        if (!error || !exists || !isRefusal(error))
            return error;
    }
    m_staged = openMemoryFile("marvo");
    return m_staged < 0 ? systemError() : std::error_code();
}

std::error_code AtomicFile::stageBeside(const struct stat* target)
{
    removeAbandonedTemporaries(m_folder);
    for (int attempt = 0; attempt < 16; ++attempt) {
        const std::string name = unpredictableName();
        if (name.empty())
            return systemError();
        if (stageAs(name, target != nullptr ? target->st_mode & 0777 : 0666))
            return target != nullptr ? takeOver(*target, m_staged) : std::error_code();
        if (errno != EEXIST)
            return systemError();
    }
    return std::make_error_code(std::errc::file_exists);
}

/// False with errno; EEXIST asks for another name.
bool AtomicFile::stageAs(const std::string& name, unsigned int permissions)
{
    m_note.take(m_folder, name);
    m_staged =
        ::openat(m_folder, name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, permissions);
    if (m_staged < 0) {
        m_note.drop();
        return false;
    }
    m_temporaryName = name;
    // Another process that tidies the folder at this moment takes it for abandoned.
    if ((lockAlone(m_staged) || errno != EWOULDBLOCK) &&
        ::faccessat(m_folder, name.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) == 0)
        return true;
    removeTemporary();
    errno = EEXIST;
    return false;
}

std::error_code AtomicFile::write(std::string_view bytes)
{
    if (!m_error)
        m_error = writeAll(m_staged, bytes);
    return m_error;
}

std::error_code AtomicFile::overwrite(std::int64_t offset, std::string_view bytes)
{
    if (!m_error)
        m_error = writeAll(m_staged, bytes, offset);
    return m_error;
}

std::error_code AtomicFile::commit()
{
    const std::error_code error = m_error ? m_error : putInPlace();
    discard();
    return error;
}

std::error_code AtomicFile::putInPlace()
{
    if (m_temporaryName.empty())
        return writeIntoTarget();
    if (::fsync(m_staged) != 0)
        return systemError();
    const std::error_code error = renameInPlace();
    if (!error) {
        m_note.drop();
        m_temporaryName.clear();
        return syncFolder(m_folder);
    }
    if (m_existing == Existing::Keep || !isRefusal(error) ||
        ::faccessat(m_folder, m_name.c_str(), W_OK, AT_EACCESS) != 0)
        return error;
    return writeIntoTarget();
}

std::error_code AtomicFile::renameInPlace()
{
    const char* from = m_temporaryName.c_str();
    const char* to = m_name.c_str();
    if (m_existing == Existing::Keep) {
        if (::renameat2(m_folder, from, m_folder, to, RENAME_NOREPLACE) == 0)
            return {};
        if (errno != EINVAL && errno != ENOSYS)
            return systemError();
        // The file system cannot look and rename in one step.
        if (::faccessat(m_folder, to, F_OK, AT_SYMLINK_NOFOLLOW) == 0)
            return std::make_error_code(std::errc::file_exists);
    }
    return ::renameat(m_folder, from, m_folder, to) == 0 ? std::error_code() : systemError();
}

std::error_code AtomicFile::writeIntoTarget()
{
    std::string content;
    if (const std::error_code error = readAll(m_staged, content))
        return error;

    const int kept = O_CLOEXEC | O_NOCTTY | O_NONBLOCK | (m_targetIsRegular ? O_NOFOLLOW : 0);
    if (!m_targetIsRegular) {
        // Opening must not wait for a pipe's reader; writing may.
        const Descriptor device(::openat(m_folder, m_name.c_str(), O_WRONLY | kept));
        if (!device || ::fcntl(*device, F_SETFL, 0) != 0)
            return systemError();
        return writeAll(*device, content);
    }

    // A file that is writable but not readable cannot be put back.
    std::optional<std::string> old;
    Descriptor readable(::openat(m_folder, m_name.c_str(), O_RDONLY | kept));
    if (readable) {
        old.emplace();
        if (const std::error_code error = readAll(*readable, *old))
            return error;
    }
    const Descriptor target(::openat(m_folder, m_name.c_str(), O_WRONLY | kept));
    if (!target)
        return systemError();
    const auto replaceBy = [&](const std::string& bytes) -> std::error_code {
        if (::lseek(*target, 0, SEEK_SET) < 0)
            return systemError();
        if (const std::error_code error = writeAll(*target, bytes))
            return error;
        if (::ftruncate(*target, static_cast<off_t>(bytes.size())) != 0 || ::fsync(*target) != 0)
            return systemError();
        return {};
    };
    const TerminationPause untilItIsWhole;
    const std::error_code error = replaceBy(content);
    if (error && old)
        replaceBy(*old);
    return error;
}

void AtomicFile::removeTemporary()
{
    if (!m_temporaryName.empty())
        ::unlinkat(m_folder, m_temporaryName.c_str(), 0);
    m_temporaryName.clear();
    m_note.drop();
    closeAndForget(m_staged);
}

void AtomicFile::discard()
{
    removeTemporary();
    closeAndForget(m_folder);
    m_error = std::make_error_code(std::errc::bad_file_descriptor);
}

std::error_code writeFileAtomically(const std::string& path, std::string_view bytes)
{
    AtomicFile file;
    if (const std::error_code error = file.open(path))
        return error;
    file.write(bytes);
    return file.commit();
}

} // namespace marvo
