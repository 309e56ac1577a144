// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/CardRestoring.h"

#include "card/CardLayout.h"
#include "support/AtomicFile.h"
#include "support/FileSource.h"
#include "support/System.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace marvo {

namespace {

std::string pathIn(const std::string& root, std::string_view name)
{
    std::string path(root);
    return path.append("/").append(name);
}

std::string settingsPath(const std::string& root) { return pathIn(root, settingsFileName); }

constexpr std::size_t mostSettingsBytes = std::size_t{64} << 10;

/// Writes out the folder's file system, then drops the file from the cache.
std::error_code writeOut(const std::string& root)
{
    const int folder = ::open(root.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return systemError();
    const std::error_code error = ::syncfs(folder) == 0 ? std::error_code() : systemError();
    ::close(folder);
    const int file = ::open(settingsPath(root).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file >= 0) {
        ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
        ::close(file);
    }
    return error;
}

} // namespace

std::optional<std::string> readCardSettingsFile(const std::string& root)
{
    // A link on a stranger's card could put any of this user's files on the new card.
    const int descriptor =
        ::open(settingsPath(root).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW);
    if (descriptor < 0)
        return std::nullopt;
    FileSource file(descriptor);
    std::string bytes(mostSettingsBytes + 1, '\0');
    bytes.resize(file.readAt(0, std::as_writable_bytes(std::span(bytes))));
    if (!file.isOpen() || !file.error().empty() || bytes.size() > mostSettingsBytes)
        return std::nullopt;
    return bytes;
}

std::optional<std::string> keepSettings(const std::string& bytes)
{
    std::error_code error;
    const std::filesystem::path temporary = std::filesystem::temp_directory_path(error);
    if (error)
        return std::nullopt;
    std::string folder = (temporary / "marvo-config-XXXXXX").string();
    if (::mkdtemp(folder.data()) == nullptr || writeFileAtomically(settingsPath(folder), bytes))
        return std::nullopt;
    return settingsPath(folder);
}

std::error_code restoreSettings(const std::string& root, const std::string& bytes)
{
    return writeFileAtomically(settingsPath(root), bytes);
}

void makeRecordingFolders(const std::string& root)
{
    for (const char* name : recordingFolders)
        ::mkdir(pathIn(root, name).c_str(), 0777);
}

std::optional<std::string> checkCard(const std::string& root, const std::string& bytes)
{
    if (const std::error_code error = writeOut(root))
        return error.message();
    if (readCardSettingsFile(root) != bytes)
        return std::string(settingsFileName).append(" reads back differently");
    for (const char* name : recordingFolders) {
        struct stat status = {};
        if (::lstat(pathIn(root, name).c_str(), &status) != 0 || !S_ISDIR(status.st_mode))
            return std::string("no folder ").append(name);
    }
    return std::nullopt;
}

} // namespace marvo
