// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "archive/Archive.h"
#include "archive/ArchiveLayout.h"
#include "archive/FileTree.h"
#include "archive/MediumReading.h"
#include "support/System.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>

namespace marvo {

namespace {

constexpr std::string_view namePrefix = "pending-";

std::vector<std::string> pendingNames(int ownFolder)
{
    std::vector<std::string> names;
    Descriptor folder(::openat(ownFolder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    DIR* const listing = folder ? ::fdopendir(*folder) : nullptr;
    if (listing == nullptr)
        return names;
    folder.release();
    while (const dirent* const entry = ::readdir(listing)) {
        if (std::string_view(entry->d_name).starts_with(namePrefix))
            names.emplace_back(entry->d_name);
    }
    ::closedir(listing);
    return names;
}

bool isLinked(int file)
{
    struct stat facts;
    return ::fstat(file, &facts) == 0 && facts.st_nlink > 0;
}

} // namespace

SumsList pendingSums(const Archive& archive)
{
    SumsList sums;
    if (archive.ownFolder() < 0)
        return sums;
    for (const std::string& name : pendingNames(archive.ownFolder())) {
        std::string text;
        if (readTextAt(archive.ownFolder(), name.c_str(), text))
            continue;
        SumsList one;
        one.read(text);
        for (const auto& [path, sum] : one.entries())
            sums.set(path, sum);
    }
    return sums;
}

std::error_code PendingSums::open(const Archive& archive, WorkControl& control)
{
    m_own = archive.ownFolder();
    recover(archive, control);
    for (int attempt = 0; attempt < 16; ++attempt) {
        const std::string random = unpredictableName();
        if (random.empty())
            return systemError();
        m_name = std::string(namePrefix) + random.substr(random.find('-') + 1);
        m_file = Descriptor(::openat(m_own, m_name.c_str(),
                                     O_RDWR | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC | O_NOFOLLOW, 0666));
        if (!m_file && errno != EEXIST)
            return systemError();
        // Another copy that begins in this moment takes it for one that a killed copy left.
        if (m_file && (::flock(*m_file, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) && isLinked(*m_file))
            return {};
    }
    return std::make_error_code(std::errc::file_exists);
}

PendingSums::~PendingSums()
{
    if (m_file && m_isEmpty)
        ::unlinkat(m_own, m_name.c_str(), 0);
}

std::error_code PendingSums::add(std::string_view pathInArchive, const Sha256Sum& sum)
{
    m_isEmpty = false;
    return writeFully(*m_file, sumsLine(pathInArchive, sum));
}

std::error_code PendingSums::sync() { return ::fsync(*m_file) == 0 ? std::error_code() : systemError(); }

std::error_code PendingSums::clear()
{
    if (m_isEmpty)
        return {};
    if (::ftruncate(*m_file, 0) != 0)
        return systemError();
    m_isEmpty = true;
    return {};
}

void PendingSums::recover(const Archive& archive, WorkControl& control)
{
    for (const std::string& name : pendingNames(m_own)) {
        const Descriptor file(::openat(m_own, name.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
        if (!file || ::flock(*file, LOCK_EX | LOCK_NB) != 0)
            continue;
        std::string text;
        if (readTextAt(m_own, name.c_str(), text))
            continue;
        SumsList pending;
        pending.read(text);
        std::map<std::string, std::map<std::string, Sha256Sum>> days;
        for (const auto& [path, sum] : pending.entries()) {
            const std::string day = dayOfPlace(path);
            const Descriptor copied = day.empty() ? Descriptor() : openFileWithin(archive.folder(), path);
            if (!copied)
                continue;
            const MediumReading reading = readMedium(*copied);
            if (reading.isWhole && reading.sum == sum)
                days[day].emplace(path.substr(day.size() + 1), sum);
        }
        bool isMerged = true;
        for (const auto& [day, sums] : days)
            isMerged = !archive.mergeSums(day, sums, {}, control) && isMerged;
        if (isMerged)
            ::unlinkat(m_own, name.c_str(), 0);
    }
}

} // namespace marvo
