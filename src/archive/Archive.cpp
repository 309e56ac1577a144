// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "archive/Archive.h"

#include "archive/ArchiveLayout.h"
#include "archive/FileTree.h"
#include "archive/WorkControl.h"
#include "support/AtomicFile.h"
#include "support/System.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <ctime>
#include <thread>

namespace marvo {

namespace {

constexpr std::array<std::string_view, 3> deletionWords{"deleted", "kept", "restored"};

/// A file of a folder by a path, for what takes paths; the folder may be renamed meanwhile.
std::string pathThrough(int folder, std::string_view name)
{
    return "/proc/self/fd/" + std::to_string(folder) + "/" + std::string(name);
}

std::vector<std::string_view> linesOf(std::string_view text)
{
    std::vector<std::string_view> lines;
    for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    return lines;
}

} // namespace

std::error_code writeFully(int file, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = ::write(file, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return systemError();
        if (count == 0)
            return std::make_error_code(std::errc::io_error);
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return {};
}

std::error_code syncFolder(int folder)
{
    if (::fsync(folder) == 0 || errno == EINVAL || errno == ENOSYS || errno == EBADF)
        return {};
    return systemError();
}

std::string unpredictableName()
{
    std::uint64_t number = 0;
    if (::getentropy(&number, sizeof number) != 0)
        return {};
    std::string name = ".marvo-";
    for (int shift = 60; shift >= 0; shift -= 4)
        name += "0123456789abcdef"[number >> shift & 15];
    return name;
}

std::string utcTimeText()
{
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm parts{};
    ::gmtime_r(&now, &parts);
    char text[32];
    return {text, std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &parts)};
}

std::error_code Archive::open(const std::string& path, Mode mode)
{
    m_path = path;
    const bool isWriting = mode == Mode::Write;
    if (isWriting && ::mkdirat(AT_FDCWD, path.c_str(), 0777) != 0 && errno != EEXIST)
        return systemError();
    m_folder = openFolder(path);
    if (!m_folder)
        return systemError();
    const std::string own(marvo::ownFolder);
    if (isWriting && ::mkdirat(*m_folder, own.c_str(), 0777) != 0 && errno != EEXIST)
        return systemError();
    m_own = openFolderWithin(*m_folder, own);
    return isWriting && !m_own ? systemError() : std::error_code();
}

std::error_code Archive::lock(WorkControl& control, Descriptor& held) const
{
    Descriptor file(::openat(*m_own, "lock", O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0666));
    if (!file)
        return systemError();
    constexpr auto pause = std::chrono::milliseconds(20);
    for (int attempt = 0; attempt < 3000; ++attempt) {
        if (::flock(*file, LOCK_EX | LOCK_NB) == 0) {
            held = std::move(file);
            return {};
        }
        if (errno != EWOULDBLOCK && errno != EINTR)
            return {};
        if (control.isCancelled())
            return std::make_error_code(std::errc::operation_canceled);
        std::this_thread::sleep_for(pause);
    }
    return std::make_error_code(std::errc::timed_out);
}

std::error_code Archive::readSums(const std::string& day, SumsList& sums) const
{
    sums = {};
    const Descriptor folder = openFolderWithin(*m_folder, day);
    if (!folder)
        return errno == ENOENT ? std::error_code() : systemError();
    std::string text;
    if (const std::error_code error = readTextAt(*folder, std::string(sumsFileName).c_str(), text))
        return error;
    sums.read(text);
    return {};
}

std::error_code Archive::mergeSums(const std::string& day, const std::map<std::string, Sha256Sum>& added,
                                   const std::set<std::string>& removed, WorkControl& control) const
{
    Descriptor held;
    if (const std::error_code error = lock(control, held))
        return error;
    const Descriptor folder = openFolderWithin(*m_folder, day);
    if (!folder)
        return systemError();
    SumsList sums;
    if (const std::error_code error = readSums(day, sums))
        return error;
    const std::string before = sums.text();
    for (const std::string& path : removed)
        sums.remove(path);
    for (const auto& [path, sum] : added)
        sums.set(path, sum);
    const std::string after = sums.text();
    if (after != before) {
        if (const std::error_code error = writeFileAtomically(pathThrough(*folder, sumsFileName), after))
            return error;
    }
    return knownDays().contains(day) ? std::error_code() : appendLine("days", day);
}

std::set<std::string> Archive::knownDays() const
{
    std::set<std::string> days;
    std::string text;
    if (!m_own || readTextAt(*m_own, "days", text))
        return days;
    for (const std::string_view line : linesOf(text)) {
        // A line that was cut off when the disk was full names no day.
        if (isPathWithin(line) && dayOfPlace(std::string(line) + "/x") == line)
            days.emplace(line);
    }
    return days;
}

std::error_code Archive::appendLine(const char* file, std::string_view line) const
{
    const Descriptor target(
        ::openat(*m_own, file, O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC | O_NOFOLLOW, 0666));
    if (!target)
        return systemError();
    const off_t size = ::lseek(*target, 0, SEEK_END);
    char last = '\n';
    if (size > 0 && ::pread(*target, &last, 1, size - 1) != 1)
        return systemError();
    std::string text = last == '\n' ? "" : "\n";
    text.append(line).append("\n");
    if (const std::error_code error = writeFully(*target, text))
        return error;
    return ::fsync(*target) == 0 ? std::error_code() : systemError();
}

std::error_code Archive::appendDeletions(const std::vector<DeletionEntry>& entries) const
{
    std::string lines;
    for (const DeletionEntry& entry : entries) {
        lines.append(entry.time).append(" ");
        lines.append(deletionWords[static_cast<std::size_t>(entry.what)]).append(" ");
        lines += sumsLine(entry.path, entry.sum);
    }
    if (lines.empty())
        return {};
    lines.pop_back();
    return appendLine("deletions", lines);
}

std::vector<DeletionEntry> Archive::deletions() const
{
    std::vector<DeletionEntry> entries;
    std::string text;
    if (!m_own || readTextAt(*m_own, "deletions", text))
        return entries;
    for (std::string_view line : linesOf(text)) {
        const std::size_t afterTime = line.find(' ');
        const std::size_t afterWord =
            afterTime == std::string_view::npos ? afterTime : line.find(' ', afterTime + 1);
        if (afterWord == std::string_view::npos)
            continue;
        const std::string_view word = line.substr(afterTime + 1, afterWord - afterTime - 1);
        SumsList one;
        one.read(std::string(line.substr(afterWord + 1)) + "\n");
        for (std::size_t i = 0; i < deletionWords.size(); ++i) {
            if (word == deletionWords[i] && !one.entries().empty())
                entries.push_back({.time = std::string(line.substr(0, afterTime)),
                                   .what = static_cast<DeletionEntry::What>(i),
                                   .path = one.entries().begin()->first,
                                   .sum = one.entries().begin()->second});
        }
    }
    return entries;
}

std::string Archive::carOfCard(std::string_view cardIdentifier) const
{
    std::string car;
    std::string text;
    if (!m_own || cardIdentifier.empty() || readTextAt(*m_own, "cards", text))
        return car;
    for (const std::string_view line : linesOf(text)) {
        const std::size_t space = line.find(' ');
        if (space == cardIdentifier.size() && line.starts_with(cardIdentifier) &&
            isCarName(line.substr(space + 1)))
            car = line.substr(space + 1);
    }
    return car;
}

std::error_code Archive::rememberCar(std::string_view cardIdentifier, std::string_view car) const
{
    if (cardIdentifier.empty() || carOfCard(cardIdentifier) == car)
        return {};
    return appendLine("cards", std::string(cardIdentifier) + " " + std::string(car));
}

} // namespace marvo
