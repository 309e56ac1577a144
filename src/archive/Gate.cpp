// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "archive/Gate.h"

#include "archive/Archive.h"
#include "archive/ArchiveLayout.h"
#include "archive/CardCopy.h"
#include "archive/FileTree.h"
#include "archive/MediumReading.h"
#include "archive/WorkControl.h"
#include "support/System.h"

#include <dirent.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iterator>
#include <map>

namespace marvo {

namespace {

class Gate
{
public:
    Gate(const std::string& card, std::string car, WorkControl& control,
         const std::function<void(const GateProgress&)>& onProgress)
        : m_path(card), m_car(std::move(car)), m_control(control), m_onProgress(onProgress)
    {}

    GateResult run(const std::vector<std::string>& archives)
    {
        m_result.error = open(archives);
        if (m_result.error)
            return std::move(m_result);
        m_result.device = deviceIdentityOf(m_path);
        const FileTree before = list();
        m_result.error = before.error;
        for (const TreeOddity& oddity : before.oddities) {
            const bool isNoFile =
                oddity.kind == TreeOddity::Kind::Link || oddity.kind == TreeOddity::Kind::Special;
            find(isNoFile ? GateFinding::Why::NotAFile : GateFinding::Why::NotListed, oddity.path, {},
                 oddity.error);
        }
        for (const TreeFile& file : before.files)
            m_progress.totalBytes += file.size;
        for (const TreeFile& file : before.files) {
            if (!m_control.mayGoOn())
                break;
            compare(file);
        }
        m_result.isCancelled = m_control.isCancelled();
        if (!m_result.isCancelled)
            compareListings(before, list());
        return std::move(m_result);
    }

private:
    std::error_code open(const std::vector<std::string>& archives)
    {
        if (!Sha256::isAvailable() || archives.empty())
            return std::make_error_code(std::errc::not_supported);
        m_card = openFolder(m_path);
        if (!m_card || ::fstat(*m_card, &m_facts) != 0)
            return systemError();
        for (const std::string& path : archives) {
            Archive archive;
            if (const std::error_code error = archive.open(path, Archive::Mode::Read))
                return error;
            if (const std::error_code error = checkApart(*m_card, archive.folder()))
                return error;
            struct stat facts;
            if (::fstat(archive.folder(), &facts) != 0)
                return systemError();
            if (isRootOfFileSystem() && facts.st_dev == m_facts.st_dev)
                return std::make_error_code(std::errc::invalid_argument);
            m_archives.push_back(std::move(archive));
        }
        return {};
    }

    bool isRootOfFileSystem() const
    {
        struct stat above;
        return ::fstatat(*m_card, "..", &above, 0) == 0 &&
               (above.st_dev != m_facts.st_dev || above.st_ino == m_facts.st_ino);
    }

    FileTree list() const
    {
        return listTree(*m_card, {}, [this] { return m_control.mayGoOn(); });
    }

    void find(GateFinding::Why why, std::string path, std::string archive = {}, std::error_code error = {})
    {
        m_result.findings.push_back(
            {.why = why, .path = std::move(path), .archive = std::move(archive), .error = error});
    }

    void compare(const TreeFile& file)
    {
        m_progress.path = file.path;
        const std::uint64_t before = m_progress.bytes;
        const Descriptor source = openFileWithin(*m_card, file.path);
        if (!source) {
            find(GateFinding::Why::CannotBeRead, file.path, {}, systemError());
            return;
        }
        const MediumReading reading = readMedium(*source, [&](std::uint64_t count) {
            m_progress.bytes += count;
            if (m_onProgress)
                m_onProgress(m_progress);
            return m_control.mayGoOn();
        });
        m_progress.bytes = before + file.size;
        if (reading.cancelled)
            return;
        ++m_result.files;
        m_result.bytes += reading.bytes;
        if (reading.error != 0)
            find(GateFinding::Why::CannotBeRead, file.path, {}, {reading.error, std::generic_category()});
        else if (!reading.isWhole || reading.bytes != file.size)
            find(GateFinding::Why::ChangedSince, file.path);
        else if (!reading.isPastCache)
            find(GateFinding::Why::FromCache, file.path);
        else
            compareCopies(file, reading);
    }

    void compareCopies(const TreeFile& file, const MediumReading& onCard)
    {
        for (const Archive& archive : m_archives) {
            const std::string day = m_car + "/" + dayFolderOf(file.path);
            const int highest = highestVariant(archive, day);
            bool isThere = false;
            for (int variant = firstVariant(file.path); !isThere && variant <= highest; ++variant) {
                const Descriptor copy =
                    openFileWithin(archive.folder(), day + "/" + placeInDay(file.path, variant));
                struct stat facts;
                if (!copy || ::fstat(*copy, &facts) != 0 ||
                    static_cast<std::uint64_t>(facts.st_size) != file.size)
                    continue;
                const MediumReading reading =
                    readMedium(*copy, [this](std::uint64_t) { return m_control.mayGoOn(); });
                if (reading.cancelled)
                    return;
                isThere = reading.isWhole && reading.bytes == onCard.bytes && reading.sum == onCard.sum;
                if (isThere && !reading.isPastCache)
                    ++m_result.archiveFromCache;
            }
            if (!isThere)
                find(GateFinding::Why::NotInArchive, file.path, archive.path());
        }
    }

    /// Of the folders "~2", "~3" ... that a day has.
    int highestVariant(const Archive& archive, const std::string& day)
    {
        const auto [known, isNew] = m_highest.try_emplace(archive.path() + "/" + day, 2);
        if (!isNew)
            return known->second;
        Descriptor folder = openFolderWithin(archive.folder(), day);
        DIR* const listing = folder ? ::fdopendir(*folder) : nullptr;
        if (listing == nullptr)
            return known->second;
        folder.release();
        while (const dirent* const entry = ::readdir(listing))
            known->second = std::max(known->second, variantOfPlace(std::string(entry->d_name) + "/"));
        ::closedir(listing);
        return known->second;
    }

    void compareListings(const FileTree& before, const FileTree& after)
    {
        std::map<std::string_view, const TreeFile*> files;
        for (const TreeFile& file : before.files)
            files.emplace(file.path, &file);
        for (const TreeFile& file : after.files) {
            const auto earlier = files.find(file.path);
            if (earlier == files.end() || !earlier->second->looksAs(file))
                find(GateFinding::Why::ChangedSince, file.path);
            if (earlier != files.end())
                files.erase(earlier);
        }
        for (const auto& [path, file] : files)
            find(GateFinding::Why::ChangedSince, std::string(path));
        if (after.error || after.oddities.size() != before.oddities.size())
            find(GateFinding::Why::NotListed, {}, {}, after.error);
        struct stat facts;
        const Descriptor again = openFolder(m_path);
        if (!again || ::fstat(*again, &facts) != 0 || facts.st_dev != m_facts.st_dev ||
            facts.st_ino != m_facts.st_ino || deviceIdentityOf(m_path) != m_result.device)
            find(GateFinding::Why::CardExchanged, {});
    }

    const std::string& m_path;
    std::string m_car;
    WorkControl& m_control;
    const std::function<void(const GateProgress&)>& m_onProgress;
    Descriptor m_card;
    struct stat m_facts
    {};
    std::vector<Archive> m_archives;
    std::map<std::string, int> m_highest;
    GateProgress m_progress;
    GateResult m_result;
};

} // namespace

GateResult compareWithArchives(const std::string& card, const std::string& car,
                               const std::vector<std::string>& archives, WorkControl& control,
                               const std::function<void(const GateProgress&)>& onProgress)
{
    return Gate(card, car, control, onProgress).run(archives);
}

std::string deviceIdentityOf(const std::string& folder)
{
    struct stat facts;
    if (::stat(folder.c_str(), &facts) != 0)
        return {};
    const std::string number =
        std::to_string(major(facts.st_dev)) + ":" + std::to_string(minor(facts.st_dev));
    const std::string device = "/sys/dev/block/" + number;
    if (::stat(device.c_str(), &facts) != 0)
        return {};
    // A partition has the number of its disk.
    for (const char* const place : {"/diskseq", "/../diskseq"}) {
        std::ifstream file(device + place);
        std::string sequence;
        if (file >> sequence)
            return number + " " + sequence;
    }
    return number;
}

} // namespace marvo
