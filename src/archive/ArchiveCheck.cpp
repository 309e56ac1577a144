// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "archive/ArchiveCheck.h"

#include "archive/Archive.h"
#include "archive/ArchiveLayout.h"
#include "archive/FileTree.h"
#include "archive/MediumReading.h"
#include "archive/WorkControl.h"
#include "support/System.h"

#include <algorithm>
#include <cerrno>
#include <map>
#include <set>

namespace marvo {

namespace {

class Check
{
public:
    Check(Archive& archive, WorkControl& control,
          const std::function<void(const ArchiveCheckProgress&)>& onProgress)
        : m_archive(archive), m_control(control), m_onProgress(onProgress)
    {}

    ArchiveCheckResult run()
    {
        const FileTree tree =
            listTree(m_archive.folder(), isOutsideArchive, [this] { return m_control.mayGoOn(); });
        m_result.error = tree.error;
        m_pending = pendingSums(m_archive);
        for (DeletionEntry& entry : m_archive.deletions())
            m_deletions[entry.path] = std::move(entry);
        for (const TreeFile& file : tree.files)
            m_progress.totalBytes += file.size;
        readLists(tree);
        for (const TreeFile& file : tree.files) {
            if (m_result.isCancelled || !m_control.mayGoOn())
                break;
            take(file);
        }
        m_result.isCancelled = m_control.isCancelled();
        if (!m_result.isCancelled) {
            for (const TreeOddity& oddity : tree.oddities)
                take(oddity);
            tellMissing();
            tellDeleted();
        }
        std::ranges::stable_sort(m_result.findings, {}, &ArchiveFinding::path);
        return std::move(m_result);
    }

private:
    void find(ArchiveFinding::What what, std::string path, std::error_code error = {}, std::string time = {})
    {
        m_result.findings.push_back(
            {.what = what, .path = std::move(path), .error = error, .time = std::move(time)});
    }

    void readLists(const FileTree& tree)
    {
        std::set<std::string> days = m_archive.knownDays();
        std::set<std::string> listed;
        for (const TreeFile& file : tree.files) {
            const std::string day = dayOfPlace(file.path);
            if (!day.empty())
                days.insert(day);
            if (file.path == day + "/" + std::string(sumsFileName))
                listed.insert(day);
        }
        const std::set<std::string> known = m_archive.knownDays();
        for (const std::string& day : days) {
            const std::string list = day + "/" + std::string(sumsFileName);
            SumsList sums;
            if (!listed.contains(day)) {
                if (known.contains(day))
                    find(ArchiveFinding::What::ListMissing, list);
            } else if (const std::error_code error = m_archive.readSums(day, sums)) {
                find(ArchiveFinding::What::CannotBeRead, list, error);
            }
            if (!sums.badLines().empty())
                find(ArchiveFinding::What::ListDamaged, list);
            for (const auto& [path, sum] : sums.entries())
                m_sums.emplace(day + "/" + path, sum);
        }
    }

    void take(const TreeFile& file)
    {
        m_progress.path = file.path;
        if (m_onProgress)
            m_onProgress(m_progress);
        const std::string day = dayOfPlace(file.path);
        const std::string inDay = day.empty() ? std::string() : file.path.substr(day.size() + 1);
        m_seen.insert(file.path);
        const auto listed = m_sums.find(file.path);
        const auto sum = listed != m_sums.end() ? std::optional(listed->second) : m_pending.find(file.path);
        const bool isOurs = inDay == sumsFileName || (isUnfinishedName(inDay) && !sum);
        if (isOurs || !sum) {
            m_progress.bytes += file.size;
            if (!isOurs)
                find(ArchiveFinding::What::Added, file.path);
            else if (inDay != sumsFileName)
                ++m_result.unfinished;
            return;
        }
        const Descriptor content = openFileWithin(m_archive.folder(), file.path);
        if (!content) {
            find(ArchiveFinding::What::CannotBeRead, file.path, systemError());
            return;
        }
        const MediumReading reading = readMedium(*content, [&](std::uint64_t count) {
            m_progress.bytes += count;
            if (m_onProgress)
                m_onProgress(m_progress);
            return m_control.mayGoOn();
        });
        if (reading.cancelled)
            m_result.isCancelled = true;
        else if (reading.error != 0)
            find(ArchiveFinding::What::CannotBeRead, file.path, {reading.error, std::generic_category()});
        else if (!reading.isWhole || reading.sum != *sum)
            find(ArchiveFinding::What::Changed, file.path);
        else
            hold(file, inDay, reading);
    }

    void hold(const TreeFile& file, const std::string& inDay, const MediumReading& reading)
    {
        ++m_result.asCopied;
        m_result.bytes += reading.bytes;
        if (!reading.isPastCache)
            ++m_result.notReadAgain;
        if (isPartialPlace(inDay))
            find(ArchiveFinding::What::KeptInPart, file.path);
    }

    void take(const TreeOddity& oddity)
    {
        m_seen.insert(oddity.path);
        const bool isNoFile =
            oddity.kind == TreeOddity::Kind::Link || oddity.kind == TreeOddity::Kind::Special;
        if (!isNoFile)
            find(ArchiveFinding::What::CannotBeRead, oddity.path, oddity.error);
        else if (m_sums.contains(oddity.path))
            find(ArchiveFinding::What::Changed, oddity.path);
        else
            find(ArchiveFinding::What::Added, oddity.path);
    }

    bool isDeleted(const std::string& path) const
    {
        const auto entry = m_deletions.find(path);
        return entry != m_deletions.end() && entry->second.what == DeletionEntry::What::Deleted;
    }

    void tellMissing()
    {
        for (const auto& [path, sum] : m_sums) {
            if (!m_seen.contains(path) && !isDeleted(path))
                find(ArchiveFinding::What::Missing, path);
        }
    }

    void tellDeleted()
    {
        for (const auto& [path, entry] : m_deletions) {
            if (!m_seen.contains(path) && isDeleted(path))
                find(ArchiveFinding::What::Deleted, path, {}, entry.time);
        }
    }

    Archive& m_archive;
    WorkControl& m_control;
    const std::function<void(const ArchiveCheckProgress&)>& m_onProgress;
    SumsList m_pending;
    std::map<std::string, Sha256Sum> m_sums; ///< of all lists, by the path from the archive's root on
    std::map<std::string, DeletionEntry> m_deletions; ///< the last entry of each path
    std::set<std::string> m_seen;
    ArchiveCheckProgress m_progress;
    ArchiveCheckResult m_result;
};

} // namespace

bool isFault(ArchiveFinding::What what)
{
    return what != ArchiveFinding::What::KeptInPart && what != ArchiveFinding::What::Deleted;
}

bool ArchiveCheckResult::holds() const
{
    return !error && !isCancelled && std::ranges::none_of(findings, [](const ArchiveFinding& finding) {
        return isFault(finding.what);
    });
}

ArchiveCheckResult checkArchive(const std::string& path, WorkControl& control,
                                const std::function<void(const ArchiveCheckProgress&)>& onProgress)
{
    ArchiveCheckResult result;
    Archive archive;
    result.error = Sha256::isAvailable() ? archive.open(path, Archive::Mode::Read)
                                         : std::make_error_code(std::errc::not_supported);
    return result.error ? result : Check(archive, control, onProgress).run();
}

} // namespace marvo
