// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "media/MediaScan.h"

#include "support/System.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <compare>
#include <deque>
#include <memory>
#include <new>
#include <set>
#include <utility>

namespace marvo {

namespace {

bool isRecordingFileName(std::string_view fileName, NameFilter isWanted)
{
    const std::string_view extension = splitFileName(fileName).extension;
    const auto is = [](char letter, char small, char capital) {
        return letter == small || letter == capital;
    };
    return extension.size() == 3 && is(extension[0], 'a', 'A') && is(extension[1], 'v', 'V') &&
           is(extension[2], 'i', 'I') && isWanted(fileName);
}

struct DirectoryCloser
{
    void operator()(DIR* directory) const { ::closedir(directory); }
};
using Directory = std::unique_ptr<DIR, DirectoryCloser>;

enum class EntryKind { Folder, File };

/// Folder or not, following links. The directory entry mostly says so; only a link, or a file system that
/// does not say, needs a system call.
EntryKind kindOf(const dirent& entry, int directory)
{
    if (entry.d_type == DT_DIR)
        return EntryKind::Folder;
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN)
        return EntryKind::File;
    struct stat status;
    return ::fstatat(directory, entry.d_name, &status, 0) == 0 && S_ISDIR(status.st_mode) ? EntryKind::Folder
                                                                                          : EntryKind::File;
}

/// The walk through a tree. A folder's entries are read and the folder is closed before the walk enters the
/// folders below it, so that a deep or wide tree costs neither descriptors nor stack.
class FolderWalk
{
public:
    FolderWalk(NameFilter isWanted, const std::stop_token& stop,
               const std::function<void(std::size_t)>& onFound)
        : m_isWanted(isWanted), m_stop(stop), m_onFound(onFound)
    {}

    /// Walks a folder and all below it; returns why the folder itself could not be read.
    std::error_code eachDir(const std::string& folder);
    std::deque<MRVMedia> takeFound() { return std::move(m_found); }

private:
    /// Where a name begins in its level's `names`; it ends with a NUL.
    struct Entry
    {
        std::size_t name;
        EntryKind kind;
    };
    /// A folder on the way down, with its recordings and folders. All names share one block of memory: a
    /// separate one for each took longer than reading the folder.
    struct Level
    {
        std::size_t pathLength;
        std::string names = {};
        std::vector<Entry> entries = {};
        std::size_t next = 0;
    };

    std::error_code enter();
    std::error_code readEntries(DIR* directory, Level& level) const;
    void takeFile(Level& level);

    NameFilter m_isWanted;
    const std::stop_token& m_stop;
    const std::function<void(std::size_t)>& m_onFound;
    std::deque<MRVMedia> m_found; ///< grows without moving what is there
    std::set<std::pair<dev_t, ino_t>> m_walked;
    std::vector<Level> m_levels;
    std::string m_path; ///< the folder or file that the walk is at
};

std::error_code FolderWalk::eachDir(const std::string& folder)
{
    m_path = folder;
    const std::error_code error = enter();
    while (!m_levels.empty() && !m_stop.stop_requested()) {
        Level& level = m_levels.back();
        if (level.next == level.entries.size()) {
            m_levels.pop_back();
            continue;
        }
        const Entry& entry = level.entries[level.next++];
        m_path.resize(level.pathLength);
        if (m_path != "/")
            m_path += '/';
        m_path += level.names.c_str() + entry.name;
        if (entry.kind == EntryKind::Folder)
            enter();
        else
            takeFile(level);
    }
    return error;
}

/// Opens the folder at m_path and adds its entries, unless the walk has been there.
std::error_code FolderWalk::enter()
{
    const int descriptor = ::open(m_path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0)
        return systemError();
    const Directory directory(::fdopendir(descriptor));
    if (!directory) {
        const std::error_code error = systemError();
        ::close(descriptor);
        return error;
    }
    struct stat status;
    if (::fstat(descriptor, &status) != 0)
        return systemError();
    if (!m_walked.emplace(status.st_dev, status.st_ino).second)
        return {};
    m_levels.push_back({m_path.size()});
    return readEntries(directory.get(), m_levels.back());
}

/// Reads the folder's recordings and folders; after an error those read before it stay.
std::error_code FolderWalk::readEntries(DIR* directory, Level& level) const
{
    // Nothing of this folder is taken after the file that fills the list, so a folder of millions of files
    // need not be read to its end.
    std::size_t room = m_found.size() < mediaListLimit ? mediaListLimit - m_found.size() : 1;

    while (room > 0 && !m_stop.stop_requested()) {
        errno = 0;
        const dirent* entry = ::readdir(directory);
        if (entry == nullptr)
            return systemError();
        const std::string_view name = entry->d_name;
        if (name == "." || name == "..")
            continue;
        const EntryKind kind = kindOf(*entry, ::dirfd(directory));
        if (kind == EntryKind::File && !isRecordingFileName(name, m_isWanted))
            continue;
        level.entries.push_back({level.names.size(), kind});
        level.names.append(name).push_back('\0');
        if (kind == EntryKind::File)
            --room;
    }
    return {};
}

void FolderWalk::takeFile(Level& level)
{
    m_found.push_back(MRVMedia::ofAbsolutePath(m_path));
    if (m_found.size() >= mediaListLimit)
        level.next = level.entries.size();
    if (m_onFound)
        m_onFound(m_found.size());
}

/// Sorts small keys instead of the records themselves, which are large and far apart.
std::vector<MRVMedia> sortedByDate(std::deque<MRVMedia> medias)
{
    struct Place
    {
        MRVMedia::DateOrder date;
        int direction; ///< front before rear
        std::size_t index;
    };
    std::vector<Place> order;
    order.reserve(medias.size());
    for (std::size_t i = 0; i < medias.size(); ++i)
        order.push_back({medias[i].dateOrder(), mediaDirection(medias[i].path()), i});
    std::ranges::sort(order, [&](const Place& a, const Place& b) {
        if (const auto byDate = a.date <=> b.date; byDate != 0)
            return byDate < 0;
        if (a.direction != b.direction)
            return a.direction < b.direction;
        return medias[a.index].path() < medias[b.index].path();
    });
    std::vector<MRVMedia> sorted;
    sorted.reserve(medias.size());
    for (const Place& place : order)
        sorted.push_back(std::move(medias[place.index]));
    return sorted;
}

} // namespace

std::optional<MRVMedia> createMediaByPath(std::string_view path)
{
    MRVMedia media(path);
    if (!isMediaName(media.mediaName()))
        return std::nullopt;
    return media;
}

MediaScan scanFolder(const std::string& folder, const std::stop_token& stop,
                     const std::function<void(std::size_t)>& onFound)
{
    return scanFolder(
        folder, [](std::string_view fileName) { return isMediaName(splitFileName(fileName).base); }, stop,
        onFound);
}

MediaScan scanFolder(const std::string& folder, NameFilter isWanted, const std::stop_token& stop,
                     const std::function<void(std::size_t)>& onFound)
{
    FolderWalk walk(isWanted, stop, onFound);
    MediaScan scan;
    try {
        // An empty path is no folder, least of all the current one.
        scan.folderError = walk.eachDir(folder.empty() ? folder : absoluteFilePath(folder));
        if (!stop.stop_requested())
            scan.medias = sortedByDate(walk.takeFound());
    } catch (const std::bad_alloc&) {
        scan.folderError = std::make_error_code(std::errc::not_enough_memory);
    }
    return scan;
}

} // namespace marvo
