// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "archive/ArchiveWriter.h"

#include "archive/ArchiveLayout.h"
#include "archive/FileTree.h"
#include "archive/MediumReading.h"
#include "archive/WorkControl.h"
#include "support/System.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <utility>

namespace marvo {

namespace {

/// So much waits for one commit: each costs some syncs of the medium.
constexpr std::size_t gatheredFiles = 32;
constexpr std::uint64_t gatheredBytes = std::uint64_t{32} * 1024 * 1024;
/// The day's list is written anew so often while files come in.
constexpr std::size_t mergedFiles = 2000;
constexpr std::int64_t mergeSeconds = 15;

std::int64_t steadySeconds()
{
    return std::chrono::duration_cast<std::chrono::seconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

bool isTaken(const std::error_code& error)
{
    return error == std::errc::file_exists || error == std::errc::not_a_directory ||
           error == std::errc::too_many_symbolic_link_levels || error == std::errc::is_a_directory;
}

/// The entry of exactly this name; file systems that ignore case find others, too.
bool hasEntry(int folder, std::string_view name)
{
    Descriptor listed(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    DIR* const listing = listed ? ::fdopendir(*listed) : nullptr;
    if (listing == nullptr)
        return false;
    listed.release();
    bool found = false;
    while (const dirent* const entry = found ? nullptr : ::readdir(listing))
        found = name == entry->d_name;
    ::closedir(listing);
    return found;
}

std::string folderPart(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

} // namespace

bool concernsOneFile(const std::error_code& error)
{
    return error == std::errc::invalid_argument || error == std::errc::filename_too_long ||
           error == std::errc::file_too_large || error == std::errc::illegal_byte_sequence ||
           error == std::errc::operation_not_permitted || isTaken(error);
}

ArchiveWriter::ArchiveWriter(std::string car, WorkControl& control)
    : m_car(std::move(car)), m_control(control)
{}

ArchiveWriter::~ArchiveWriter()
{
    discard();
    for (const auto& staged : m_gathered)
        dropTemporary(*staged);
    merge();
}

std::error_code ArchiveWriter::open(const std::string& path)
{
    if (const std::error_code error = m_archive.open(path, Archive::Mode::Write))
        return error;
    m_lastMerge = steadySeconds();
    return m_pending.open(m_archive, m_control);
}

std::error_code ArchiveWriter::enterDay(const std::string& dayFolder, std::vector<PlacedFile>& results)
{
    const std::string day = m_car + "/" + dayFolder;
    if (day == m_day)
        return {};
    std::error_code error = commit(results);
    if (!error)
        error = merge();
    if (error)
        return error;
    m_day.clear();
    for (std::size_t end = day.find('/'); true; end = day.find('/', end + 1)) {
        const std::string folder = day.substr(0, end);
        const Descriptor parent = openFolderWithin(m_archive.folder(), folderPart(folder));
        if (!parent)
            return systemError();
        const std::string name = folder.substr(folder.rfind('/') + 1);
        if (::mkdirat(*parent, name.c_str(), 0777) == 0)
            error = syncFolder(*parent);
        else if (errno != EEXIST)
            error = systemError();
        if (error)
            return error;
        if (end == std::string::npos)
            break;
    }
    m_dayFolder = openFolderWithin(m_archive.folder(), day);
    if (!m_dayFolder)
        return systemError();
    m_knownFolders.clear();
    error = m_archive.readSums(day, m_sums);
    if (error)
        return error;
    m_day = day;
    m_highestVariant = 2;
    for (auto entry = m_sums.entries().lower_bound("~"); entry != m_sums.entries().end(); ++entry)
        m_highestVariant = std::max(m_highestVariant, variantOfPlace(entry->first));
    clearAbandoned();
    return {};
}

/// Removes temporaries that nobody is writing.
void ArchiveWriter::clearAbandoned()
{
    Descriptor listed(::openat(*m_dayFolder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    DIR* const listing = listed ? ::fdopendir(*listed) : nullptr;
    if (listing == nullptr)
        return;
    listed.release();
    while (const dirent* const entry = ::readdir(listing)) {
        if (!isUnfinishedName(entry->d_name) || m_sums.find(entry->d_name))
            continue;
        const Descriptor file(
            ::openat(*m_dayFolder, entry->d_name, O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY));
        if (file && ::flock(*file, LOCK_EX | LOCK_NB) == 0)
            ::unlinkat(*m_dayFolder, entry->d_name, 0);
    }
    ::closedir(listing);
}

/// The size of a file of the day that has a sum.
std::optional<std::uint64_t> ArchiveWriter::listedSize(const std::string& pathInDay) const
{
    if (!m_sums.find(pathInDay))
        return std::nullopt;
    struct stat facts;
    const Descriptor folder = openFolderWithin(*m_dayFolder, folderPart(pathInDay));
    const std::string name = pathInDay.substr(pathInDay.rfind('/') + 1);
    if (!folder || ::fstatat(*folder, name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) != 0 ||
        !S_ISREG(facts.st_mode))
        return std::nullopt;
    return static_cast<std::uint64_t>(facts.st_size);
}

bool ArchiveWriter::holds(std::string_view cardPath, std::uint64_t size, const Sha256Sum* sum) const
{
    for (int variant = firstVariant(cardPath); variant <= m_highestVariant; ++variant) {
        const std::string path = placeInDay(cardPath, variant);
        const auto listed = m_sums.find(path);
        if (listed && (sum == nullptr || *listed == *sum) && listedSize(path) == size)
            return true;
    }
    return false;
}

std::error_code ArchiveWriter::begin()
{
    discard();
    auto staged = std::make_unique<Staged>();
    for (int attempt = 0; attempt < 16; ++attempt) {
        staged->name = unpredictableName();
        if (staged->name.empty())
            return systemError();
        staged->name += ".part";
        staged->note.take(*m_dayFolder, staged->name);
        staged->file = Descriptor(::openat(*m_dayFolder, staged->name.c_str(),
                                           O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0666));
        if (!staged->file && errno != EEXIST)
            return systemError();
        // Another copy may clear it away before it is locked.
        if (staged->file && (::flock(*staged->file, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) &&
            ::faccessat(*m_dayFolder, staged->name.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) == 0) {
            m_current = std::move(staged);
            return {};
        }
        staged->note.drop();
    }
    return std::make_error_code(std::errc::file_exists);
}

std::error_code ArchiveWriter::write(std::span<const std::byte> bytes)
{
    // What is written begins its way to the medium at once, so that the sync at the end has little left.
    constexpr std::uint64_t step = std::uint64_t{8} * 1024 * 1024;
    const std::error_code error =
        writeFully(*m_current->file, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    const std::uint64_t before = m_current->size;
    m_current->size += bytes.size();
    if (!error && before / step != m_current->size / step)
        ::sync_file_range(*m_current->file, 0, 0, SYNC_FILE_RANGE_WRITE);
    return error;
}

void ArchiveWriter::finish(std::string cardPath, const Sha256Sum& sum, const timespec& accessed,
                           const timespec& modified, bool isPartial)
{
    m_current->outcome.cardPath = std::move(cardPath);
    m_current->outcome.sum = sum;
    m_current->outcome.size = m_current->size;
    m_current->outcome.isPartial = isPartial;
    m_current->times[0] = accessed;
    m_current->times[1] = modified;
    m_gatheredBytes += m_current->size;
    m_gathered.push_back(std::move(m_current));
}

void ArchiveWriter::dropTemporary(Staged& staged)
{
    if (staged.file && m_dayFolder)
        ::unlinkat(*m_dayFolder, staged.name.c_str(), 0);
    staged.note.drop();
    staged.file.reset();
}

void ArchiveWriter::discard()
{
    if (m_current)
        dropTemporary(*m_current);
    m_current.reset();
}

bool ArchiveWriter::isFull() const
{
    return m_gathered.size() >= gatheredFiles || m_gatheredBytes >= gatheredBytes;
}

/// Brings a temporary to the medium and reads it back.
std::error_code ArchiveWriter::verify(Staged& staged)
{
    if (::futimens(*staged.file, staged.times) != 0 && errno != EPERM)
        return systemError();
    if (::fsync(*staged.file) != 0)
        return systemError();
    // Opened anew, as others see it: some file systems give back what the writer's own descriptor remembers.
    const Descriptor written = openFileWithin(*m_dayFolder, staged.name);
    if (!written)
        return systemError();
    for (int attempt = 0; attempt < 2; ++attempt) {
        const MediumReading reading =
            readMedium(*written, [this](std::uint64_t) { return m_control.mayGoOn(); });
        if (reading.cancelled)
            return std::make_error_code(std::errc::operation_canceled);
        if (reading.error != 0)
            return {reading.error, std::generic_category()};
        staged.outcome.isReadPastCache = reading.isPastCache;
        if (reading.isWhole && reading.bytes == staged.size && reading.sum == staged.outcome.sum)
            return {};
    }
    staged.outcome.result = PlacedFile::Result::Differs;
    return {};
}

/// True when each component of a path that exists is named exactly so, not only in another case.
bool ArchiveWriter::isNamedSo(const std::string& pathInDay) const
{
    const std::string parent = folderPart(pathInDay);
    if (!parent.empty() && !m_knownFolders.contains(parent) && !isNamedSo(parent))
        return false;
    const Descriptor folder = openFolderWithin(*m_dayFolder, parent);
    return folder && hasEntry(*folder, std::string_view(pathInDay).substr(pathInDay.rfind('/') + 1));
}

std::error_code ArchiveWriter::makeFolders(const std::string& pathInDay)
{
    const std::string path = folderPart(pathInDay);
    if (path.empty() || m_knownFolders.contains(path))
        return {};
    if (const std::error_code error = makeFolders(path))
        return error;
    const Descriptor parent = openFolderWithin(*m_dayFolder, folderPart(path));
    if (!parent)
        return systemError();
    const std::string name = path.substr(path.rfind('/') + 1);
    if (::mkdirat(*parent, name.c_str(), 0777) == 0) {
        m_touched.insert(folderPart(path));
    } else if (errno != EEXIST) {
        return systemError();
    } else if (!hasEntry(*parent, name) || !openFolderWithin(*parent, name)) {
        return std::make_error_code(std::errc::file_exists);
    }
    m_knownFolders.insert(path);
    return {};
}

/// The first variant, from the one given on, that is free or has this content. No path: none of them is.
ArchiveWriter::Place ArchiveWriter::findPlace(const Staged& staged, int& variant)
{
    const PlacedFile& file = staged.outcome;
    for (; variant <= lastVariant; ++variant) {
        std::string path =
            file.isPartial ? partialPlaceInDay(file.cardPath, variant) : placeInDay(file.cardPath, variant);
        if (const std::error_code error = makeFolders(path)) {
            if (isTaken(error))
                continue;
            return {.path = {}, .isThere = false, .error = error};
        }
        const Descriptor folder = openFolderWithin(*m_dayFolder, folderPart(path));
        if (!folder)
            return {.path = {}, .isThere = false, .error = systemError()};
        struct stat facts;
        const std::string name = path.substr(path.rfind('/') + 1);
        if (::fstatat(*folder, name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) != 0) {
            if (errno == ENOENT)
                return {.path = std::move(path), .isThere = false, .error = {}};
            return {.path = {}, .isThere = false, .error = systemError()};
        }
        if (!S_ISREG(facts.st_mode) || static_cast<std::uint64_t>(facts.st_size) != staged.size)
            continue;
        const auto listed = m_sums.find(path);
        if (!listed && !isNamedSo(path))
            continue;
        // What another copy has just placed is in no list that was read here.
        const Descriptor there = openFileWithin(*folder, name);
        const MediumReading reading = there ? readMedium(*there) : MediumReading();
        if (reading.isWhole && reading.sum == file.sum)
            return {.path = std::move(path), .isThere = true, .error = {}};
    }
    return {.path = {}, .isThere = false, .error = std::make_error_code(std::errc::file_exists)};
}

std::error_code ArchiveWriter::rename(const Staged& staged, const std::string& pathInDay)
{
    const Descriptor folder = openFolderWithin(*m_dayFolder, folderPart(pathInDay));
    if (!folder)
        return systemError();
    const std::string name = pathInDay.substr(pathInDay.rfind('/') + 1);
    if (::renameat2(*m_dayFolder, staged.name.c_str(), *folder, name.c_str(), RENAME_NOREPLACE) == 0)
        return {};
    if (errno != EINVAL && errno != ENOSYS)
        return systemError();
    // The file system cannot look and rename in one step; other copies wait meanwhile.
    Descriptor held;
    if (const std::error_code error = m_archive.lock(m_control, held))
        return error;
    if (::faccessat(*folder, name.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) == 0)
        return std::make_error_code(std::errc::file_exists);
    return ::renameat(*m_dayFolder, staged.name.c_str(), *folder, name.c_str()) == 0 ? std::error_code()
                                                                                     : systemError();
}

void ArchiveWriter::takePlace(Staged& staged, const std::string& pathInDay, PlacedFile::Result result)
{
    staged.outcome.path = m_day + "/" + pathInDay;
    staged.outcome.result = result;
    if (result == PlacedFile::Result::Placed) {
        staged.note.drop();
        staged.file.reset();
        m_touched.insert(folderPart(pathInDay));
    }
    if (m_sums.find(pathInDay) != staged.outcome.sum) {
        m_sums.set(pathInDay, staged.outcome.sum);
        m_added[pathInDay] = staged.outcome.sum;
        m_removed.erase(pathInDay);
        m_highestVariant = std::max(m_highestVariant, variantOfPlace(pathInDay));
    }
}

/// Renames a temporary to the place chosen, or if another copy has taken that meanwhile to the next one.
std::error_code ArchiveWriter::place(Staged& staged, const std::string& chosen, int variant)
{
    std::error_code error = rename(staged, chosen);
    std::string path = chosen;
    while (isTaken(error)) {
        const Place other = findPlace(staged, variant);
        if (other.error)
            return other.error;
        path = other.path;
        if (other.isThere) {
            takePlace(staged, path, PlacedFile::Result::There);
            return {};
        }
        error = m_pending.add(m_day + "/" + path, staged.outcome.sum);
        if (!error)
            error = m_pending.sync();
        if (error)
            return error;
        error = rename(staged, path);
    }
    if (!error) {
        removeSupersededPartials(staged, path);
        takePlace(staged, path, PlacedFile::Result::Placed);
    }
    return error;
}

/// Of the first bytes of a file that has just got its name.
Sha256Sum ArchiveWriter::prefixSum(const Staged& staged, const std::string& pathInDay,
                                   std::uint64_t size) const
{
    const Descriptor file = openFileWithin(*m_dayFolder, pathInDay);
    return file && size <= staged.size ? readMedium(*file, {}, size).sum : Sha256Sum{};
}

/// A file kept in part goes when the whole begins with the same bytes.
void ArchiveWriter::removeSupersededPartials(const Staged& staged, const std::string& placed)
{
    if (staged.outcome.isPartial)
        return;
    for (int variant = firstVariant(staged.outcome.cardPath); variant <= lastVariant; ++variant) {
        const std::string path = partialPlaceInDay(staged.outcome.cardPath, variant);
        const auto sum = m_sums.find(path);
        if (!sum)
            return;
        const auto size = listedSize(path);
        if (!size || *size > staged.size || prefixSum(staged, placed, *size) != *sum)
            continue;
        const Descriptor folder = openFolderWithin(*m_dayFolder, folderPart(path));
        const DeletionEntry entry{.time = utcTimeText(),
                                  .what = DeletionEntry::What::Deleted,
                                  .path = m_day + "/" + path,
                                  .sum = *sum};
        if (!folder || m_archive.appendDeletions({entry}))
            return;
        ::unlinkat(*folder, path.substr(path.rfind('/') + 1).c_str(), 0);
        m_added.erase(path);
        m_removed.insert(path);
    }
}

std::error_code ArchiveWriter::commit(std::vector<PlacedFile>& results)
{
    std::error_code error;
    std::vector<std::pair<Place, int>> places;
    std::vector<std::unique_ptr<Staged>> gathered = std::exchange(m_gathered, {});
    m_gatheredBytes = 0;
    for (const auto& staged : gathered) {
        if (!error)
            error = verify(*staged);
        int variant = firstVariant(staged->outcome.cardPath);
        Place place;
        if (!error && staged->outcome.result != PlacedFile::Result::Differs) {
            place = findPlace(*staged, variant);
            if (!place.error && !place.isThere)
                error = m_pending.add(m_day + "/" + place.path, staged->outcome.sum);
            else if (place.error && !concernsOneFile(place.error))
                error = place.error;
        }
        places.emplace_back(std::move(place), variant);
    }
    if (!error && !m_pending.isEmpty())
        error = m_pending.sync();
    for (std::size_t i = 0; i < gathered.size(); ++i) {
        Staged& staged = *gathered[i];
        const Place& found = places[i].first;
        if (!error && staged.outcome.result != PlacedFile::Result::Differs) {
            staged.outcome.error = found.error;
            if (found.isThere)
                takePlace(staged, found.path, PlacedFile::Result::There);
            else if (!found.error)
                staged.outcome.error = place(staged, found.path, places[i].second);
            if (staged.outcome.error && !concernsOneFile(staged.outcome.error))
                error = staged.outcome.error;
            else if (staged.outcome.error)
                staged.outcome.result = PlacedFile::Result::Refused;
        }
        dropTemporary(staged);
        if (!error)
            results.push_back(std::move(staged.outcome));
    }
    for (const std::string& touched : std::exchange(m_touched, {})) {
        const Descriptor folder = openFolderWithin(*m_dayFolder, touched);
        const std::error_code syncError = folder ? syncFolder(*folder) : systemError();
        if (!error)
            error = syncError;
    }
    if (!error && (m_added.size() >= mergedFiles || steadySeconds() - m_lastMerge >= mergeSeconds))
        error = merge();
    return error;
}

/// What was deleted and is copied anew is missed again when it goes.
std::error_code ArchiveWriter::noteRestored() const
{
    std::map<std::string, DeletionEntry> lastEntries;
    for (DeletionEntry& entry : m_archive.deletions())
        lastEntries[entry.path] = std::move(entry);
    std::vector<DeletionEntry> restored;
    for (const auto& [path, sum] : m_added) {
        const auto entry = lastEntries.find(m_day + "/" + path);
        if (entry != lastEntries.end() && entry->second.what == DeletionEntry::What::Deleted)
            restored.push_back({.time = utcTimeText(),
                                .what = DeletionEntry::What::Restored,
                                .path = entry->first,
                                .sum = sum});
    }
    return m_archive.appendDeletions(restored);
}

std::error_code ArchiveWriter::merge()
{
    m_lastMerge = steadySeconds();
    if (m_day.empty() || !m_dayFolder || (m_added.empty() && m_removed.empty() && m_pending.isEmpty()))
        return {};
    if (!m_added.empty() || !m_removed.empty()) {
        if (const std::error_code error = noteRestored())
            return error;
        if (const std::error_code error = m_archive.mergeSums(m_day, m_added, m_removed, m_control))
            return error;
    }
    m_added.clear();
    m_removed.clear();
    return m_pending.clear();
}

} // namespace marvo
