// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "archive/CardCopy.h"

#include "archive/ArchiveLayout.h"
#include "archive/MediumReading.h"
#include "archive/TransferLog.h"
#include "archive/WorkControl.h"
#include "media/MediaName.h"
#include "support/LargeBuffer.h"
#include "support/System.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <memory>
#include <utility>

namespace marvo {

namespace {

constexpr std::size_t pieceSize = 1024 * 1024;

bool isEvent(std::string_view path)
{
    constexpr int eventKind = 2;
    return kindOfMediaName(path.substr(path.rfind('/') + 1)) == eventKind;
}

bool isSameFile(const struct stat& a, const struct stat& b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

bool liesWithin(int folder, const struct stat& outer)
{
    Descriptor at(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    struct stat facts;
    struct stat before
    {};
    while (at && ::fstat(*at, &facts) == 0) {
        if (isSameFile(facts, outer))
            return true;
        if (isSameFile(facts, before))
            return false;
        before = facts;
        at = Descriptor(::openat(*at, "..", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    }
    return false;
}

/// One archive that is being written to.
struct Target
{
    Target(const std::string& car, WorkControl& control) : writer(car, control) {}

    ArchiveWriter writer;
    TransferLog log;
    CardCopyResult::ArchiveOutcome outcome;
    bool isWanting = false; ///< of the file at hand

    bool isAlive() const { return !outcome.error; }
};

class Copy
{
public:
    Copy(const CardCopyOptions& options, WorkControl& control,
         const std::function<void(const CardCopyProgress&)>& onProgress)
        : m_options(options),
          m_control(control),
          m_onProgress(onProgress),
          m_buffer(makeLargeBuffer(pieceSize))
    {}

    CardCopyResult run()
    {
        if (const std::error_code error = open()) {
            m_result.end = error == std::errc::operation_canceled ? CardCopyResult::End::Cancelled
                                                                  : CardCopyResult::End::NotBegun;
            m_result.error = error;
            return std::move(m_result);
        }
        const auto files = list();
        for (const TreeFile& file : files) {
            if (!m_control.mayGoOn())
                m_result.end = CardCopyResult::End::Cancelled;
            if (m_result.end != CardCopyResult::End::Done)
                break;
            tell(file.path, 0);
            copyFile(file);
            m_progress.bytes += file.size;
            ++m_progress.files;
        }
        tell({}, 0);
        finish();
        return std::move(m_result);
    }

private:
    /// What reading a file to its end gave.
    struct Reading
    {
        Sha256Sum sum{};
        std::uint64_t bytes = 0;
        int error = 0;
        struct stat facts
        {}; ///< when it was opened
        bool isShort = false;
        bool isChanged = false;
        bool isCancelled = false;
    };

    std::error_code open()
    {
        if (!Sha256::isAvailable() || !m_buffer)
            return std::make_error_code(std::errc::not_supported);
        m_card = openFolder(m_options.card);
        if (!m_card || ::fstat(*m_card, &m_cardFacts) != 0)
            return systemError();
        std::vector<struct stat> roots;
        for (const std::string& path : m_options.archives) {
            auto target = std::make_unique<Target>(m_options.car, m_control);
            target->outcome.path = path;
            if (const std::error_code error = checkArchivePath(path))
                return error;
            if (const std::error_code error = target->writer.open(path))
                return error;
            struct stat facts;
            if (::fstat(target->writer.archive().folder(), &facts) != 0)
                return systemError();
            if (std::ranges::any_of(roots,
                                    [&](const struct stat& other) { return isSameFile(facts, other); }))
                return std::make_error_code(std::errc::invalid_argument);
            roots.push_back(facts);
            target->writer.archive().rememberCar(m_options.cardIdentifier, m_options.car);
            target->log.open(target->writer.archive(), m_options.card, m_options.cardIdentifier,
                             m_options.car);
            m_targets.push_back(std::move(target));
        }
        return m_targets.empty() ? std::make_error_code(std::errc::invalid_argument) : std::error_code();
    }

    /// Before anything is made in it: it may be on the card itself.
    std::error_code checkArchivePath(const std::string& path) const
    {
        if (const Descriptor existing = openFolder(path))
            return checkApart(*m_card, *existing);
        if (errno != ENOENT)
            return systemError();
        std::string whole = absoluteFilePath(path);
        const std::size_t slash = whole.rfind('/');
        whole.resize(slash == std::string::npos ? 0 : slash + 1);
        const Descriptor parent = openFolder(whole);
        if (!parent)
            return systemError();
        return liesWithin(*parent, m_cardFacts) ? std::make_error_code(std::errc::invalid_argument)
                                                : std::error_code();
    }

    std::vector<TreeFile> list()
    {
        FileTree tree = listTree(*m_card, {}, [this] { return m_control.mayGoOn(); });
        if (tree.error) {
            m_result.end = CardCopyResult::End::NotBegun;
            m_result.error = tree.error;
        }
        for (const TreeOddity& oddity : tree.oddities) {
            const bool isNoFile =
                oddity.kind == TreeOddity::Kind::Link || oddity.kind == TreeOddity::Kind::Special;
            problem({.path = oddity.path,
                     .kind = isNoFile ? CardCopyProblem::Kind::NotAFile : CardCopyProblem::Kind::NotListed,
                     .archive = {},
                     .error = oddity.error,
                     .bytesKept = 0});
        }
        for (const TreeFile& file : tree.files)
            m_result.bytes += file.size;
        m_result.files = tree.files.size();
        m_progress.totalFiles = m_result.files;
        m_progress.totalBytes = m_result.bytes;
        return inCopyingOrder(std::move(tree.files));
    }

    void tell(std::string_view path, std::uint64_t bytesOfFile)
    {
        if (!m_onProgress)
            return;
        CardCopyProgress progress = m_progress;
        progress.bytes += bytesOfFile;
        progress.path = path;
        m_onProgress(progress);
    }

    void problem(CardCopyProblem problem)
    {
        for (const auto& target : m_targets)
            target->log.note(problem);
        m_result.problems.push_back(std::move(problem));
    }

    bool isCardGone() const
    {
        struct stat facts;
        const Descriptor again = openFolder(m_options.card);
        return !again || ::fstat(*again, &facts) != 0 || !isSameFile(facts, m_cardFacts) ||
               static_cast<bool>(listTreeRoot(*again));
    }

    /// Whether the root itself can be listed at all.
    static std::error_code listTreeRoot(int folder)
    {
        std::error_code error;
        std::filesystem::directory_iterator("/proc/self/fd/" + std::to_string(folder), error);
        return error;
    }

    void fail(Target& target, const std::error_code& error)
    {
        if (error == std::errc::operation_canceled) {
            m_result.end = CardCopyResult::End::Cancelled;
            return;
        }
        target.outcome.error = error;
        target.writer.discard();
        target.isWanting = false;
        // What was whole before may still be kept.
        commit(target);
        target.writer.merge();
        if (std::ranges::none_of(m_targets, [](const auto& other) { return other->isAlive(); })) {
            m_result.end = CardCopyResult::End::NoArchive;
            m_result.error = error;
        }
    }

    template <typename Action>
    void forWanting(Action&& action)
    {
        for (const auto& target : m_targets) {
            if (!target->isAlive() || !target->isWanting)
                continue;
            if (const std::error_code error = action(*target))
                fail(*target, error);
        }
    }

    bool isAnyWanting() const
    {
        return std::ranges::any_of(m_targets,
                                   [](const auto& target) { return target->isAlive() && target->isWanting; });
    }

    void discardAll()
    {
        for (const auto& target : m_targets)
            target->writer.discard();
    }

    /// Reads a file of the card to its end; to the archives that want it, if told so.
    Reading read(const TreeFile& file, bool isWriting)
    {
        Reading reading;
        const Descriptor source = openFileWithin(*m_card, file.path);
        if (!source || ::fstat(*source, &reading.facts) != 0) {
            reading.error = errno != 0 ? errno : EIO;
            reading.isShort = true;
            return reading;
        }
        ::posix_fadvise(*source, 0, 0, POSIX_FADV_SEQUENTIAL);
        Sha256 sum;
        bool isSecondTry = false;
        while (true) {
            const auto before = std::chrono::steady_clock::now();
            const ssize_t count =
                ::pread(*source, m_buffer.get(), pieceSize, static_cast<off_t>(reading.bytes));
            m_result.secondsReading +=
                std::chrono::duration<double>(std::chrono::steady_clock::now() - before).count();
            if (count < 0 && (errno == EINTR || !std::exchange(isSecondTry, true)))
                continue;
            if (count < 0)
                reading.error = errno;
            if (count <= 0)
                break;
            isSecondTry = false;
            const std::span<const std::byte> piece(m_buffer.get(), static_cast<std::size_t>(count));
            sum.add(piece);
            reading.bytes += piece.size();
            m_result.bytesRead += piece.size();
            if (isWriting)
                forWanting([&](Target& target) { return write(target, file, piece); });
            // The pages are of no further use, and others need the room.
            ::posix_fadvise(*source, static_cast<off_t>(reading.bytes - piece.size()), count,
                            POSIX_FADV_DONTNEED);
            tell(file.path, std::min(reading.bytes, file.size));
            if (!m_control.mayGoOn() || (isWriting && !isAnyWanting())) {
                reading.isCancelled = true;
                return reading;
            }
        }
        reading.sum = sum.finish();
        struct stat after;
        const bool isKnown = ::fstat(*source, &after) == 0;
        reading.isShort = reading.error != 0 || static_cast<off_t>(reading.bytes) < reading.facts.st_size;
        reading.isChanged = isKnown && (after.st_size != reading.facts.st_size ||
                                        after.st_mtim.tv_sec != reading.facts.st_mtim.tv_sec ||
                                        after.st_mtim.tv_nsec != reading.facts.st_mtim.tv_nsec ||
                                        static_cast<off_t>(reading.bytes) > after.st_size);
        return reading;
    }

    /// What an archive cannot hold for its name or size is no fault of the archive.
    std::error_code write(Target& target, const TreeFile& file, std::span<const std::byte> piece)
    {
        const std::error_code error = target.writer.write(piece);
        return error && concernsOneFile(error) ? refuse(target, file.path, error) : error;
    }

    std::error_code refuse(Target& target, const std::string& path, const std::error_code& error)
    {
        target.writer.discard();
        target.isWanting = false;
        problem({.path = path,
                 .kind = CardCopyProblem::Kind::Refused,
                 .archive = target.outcome.path,
                 .error = error,
                 .bytesKept = 0});
        return {};
    }

    void copyFile(const TreeFile& file)
    {
        for (const auto& target : m_targets)
            target->isWanting = target->isAlive();
        const std::string day = dayFolderOf(file.path);
        forWanting([&](Target& target) {
            std::vector<PlacedFile> placed;
            const std::error_code error = target.writer.enterDay(day, placed);
            take(target, placed);
            return error;
        });
        std::optional<Sha256Sum> firstSum;
        if (std::ranges::any_of(m_targets, [&](const auto& target) {
                return target->isWanting && target->writer.holds(file.path, file.size);
            })) {
            const Reading reading = read(file, false);
            if (reading.isCancelled)
                return;
            if (!reading.isShort && !reading.isChanged && reading.bytes == file.size) {
                firstSum = reading.sum;
                forWanting([&](Target& target) {
                    if (target.writer.holds(file.path, file.size, &reading.sum)) {
                        target.isWanting = false;
                        ++target.outcome.there;
                        target.log.there(file.path, reading.sum, file.size);
                    }
                    return std::error_code();
                });
            }
        }
        for (int attempt = 0; isAnyWanting() && m_result.end == CardCopyResult::End::Done; ++attempt) {
            if (copyOnce(file, firstSum, attempt > 0))
                return;
        }
    }

    /// False when the file changed meanwhile and is worth another attempt.
    bool copyOnce(const TreeFile& file, const std::optional<Sha256Sum>& firstSum, bool isLastAttempt)
    {
        forWanting([](Target& target) { return target.writer.begin(); });
        if (!isAnyWanting())
            return true;
        const Reading reading = read(file, true);
        if (reading.isCancelled) {
            discardAll();
            return true;
        }
        if (reading.isChanged && !reading.error) {
            discardAll();
            if (isLastAttempt)
                problem({.path = file.path,
                         .kind = CardCopyProblem::Kind::Changing,
                         .archive = {},
                         .error = {},
                         .bytesKept = 0});
            return isLastAttempt;
        }
        if (reading.isShort) {
            problem({.path = file.path,
                     .kind = reading.bytes > 0 ? CardCopyProblem::Kind::ReadInPart
                                               : CardCopyProblem::Kind::NotReadable,
                     .archive = {},
                     .error = std::error_code(reading.error, std::generic_category()),
                     .bytesKept = reading.bytes});
            if (isCardGone())
                m_result.end = CardCopyResult::End::CardGone;
            if (reading.bytes == 0) {
                discardAll();
                return true;
            }
        } else if (firstSum && *firstSum != reading.sum) {
            problem({.path = file.path,
                     .kind = CardCopyProblem::Kind::DiffersAgain,
                     .archive = {},
                     .error = {},
                     .bytesKept = 0});
        }
        forWanting([&](Target& target) {
            target.writer.finish(file.path, reading.sum, reading.facts.st_atim, reading.facts.st_mtim,
                                 reading.isShort);
            return target.writer.isFull() ? commit(target) : std::error_code();
        });
        return true;
    }

    std::error_code commit(Target& target)
    {
        std::vector<PlacedFile> placed;
        const std::error_code error = target.writer.commit(placed);
        take(target, placed);
        return error;
    }

    void take(Target& target, const std::vector<PlacedFile>& placed)
    {
        for (const PlacedFile& file : placed) {
            target.log.placed(file);
            if (!file.isReadPastCache)
                ++target.outcome.notReadAgain;
            if (file.result == PlacedFile::Result::There) {
                ++target.outcome.there;
            } else if (file.result == PlacedFile::Result::Placed) {
                ++target.outcome.copied;
                target.outcome.copiedBytes += file.size;
            } else {
                const bool isRefused = file.result == PlacedFile::Result::Refused;
                problem(
                    {.path = file.cardPath,
                     .kind = isRefused ? CardCopyProblem::Kind::Refused : CardCopyProblem::Kind::WrittenWrong,
                     .archive = target.outcome.path,
                     .error = file.error,
                     .bytesKept = 0});
            }
        }
    }

    void finish()
    {
        for (const auto& target : m_targets) {
            target->isWanting = true;
            if (!target->isAlive())
                continue;
            std::error_code error = commit(*target);
            if (!error)
                error = target->writer.merge();
            if (error)
                fail(*target, error);
        }
        for (const auto& target : m_targets) {
            target->log.close(m_result, target->outcome);
            m_result.archives.push_back(target->outcome);
        }
    }

    const CardCopyOptions& m_options;
    WorkControl& m_control;
    const std::function<void(const CardCopyProgress&)>& m_onProgress;
    LargeBuffer m_buffer;
    Descriptor m_card;
    struct stat m_cardFacts
    {};
    std::vector<std::unique_ptr<Target>> m_targets;
    CardCopyProgress m_progress;
    CardCopyResult m_result;
};

} // namespace

bool CardCopyResult::isComplete() const
{
    return end == End::Done && problems.empty() &&
           std::ranges::none_of(
               archives, [](const ArchiveOutcome& archive) { return static_cast<bool>(archive.error); });
}

CardCopyResult copyCard(const CardCopyOptions& options, WorkControl& control,
                        const std::function<void(const CardCopyProgress&)>& onProgress)
{
    return Copy(options, control, onProgress).run();
}

std::vector<TreeFile> inCopyingOrder(std::vector<TreeFile> files)
{
    struct Key
    {
        bool isOther;
        std::string day;
    };
    std::vector<std::pair<Key, TreeFile>> keyed;
    keyed.reserve(files.size());
    for (TreeFile& file : files) {
        Key key{.isOther = !isEvent(file.path), .day = dayFolderOf(file.path)};
        keyed.emplace_back(std::move(key), std::move(file));
    }
    std::ranges::stable_sort(keyed, [](const auto& a, const auto& b) {
        return std::tie(a.first.isOther, a.first.day, a.second.path) <
               std::tie(b.first.isOther, b.first.day, b.second.path);
    });
    files.clear();
    for (auto& [key, file] : keyed)
        files.push_back(std::move(file));
    return files;
}

std::error_code checkApart(int card, int archive)
{
    struct stat cardFacts;
    struct stat archiveFacts;
    if (::fstat(card, &cardFacts) != 0 || ::fstat(archive, &archiveFacts) != 0)
        return systemError();
    if (liesWithin(archive, cardFacts) || liesWithin(card, archiveFacts))
        return std::make_error_code(std::errc::invalid_argument);
    return {};
}

std::string cardIdentifierOf(const std::string& card)
{
    struct stat facts;
    if (::stat(card.c_str(), &facts) != 0)
        return {};
    std::error_code error;
    for (std::filesystem::directory_iterator entry("/dev/disk/by-uuid", error), end; !error && entry != end;
         entry.increment(error)) {
        struct stat device;
        const std::string name = entry->path().filename().string();
        const bool isPlain = !name.empty() && name.find_first_of(" \n\r\\") == std::string::npos;
        if (isPlain && ::stat(entry->path().c_str(), &device) == 0 && S_ISBLK(device.st_mode) &&
            device.st_rdev == facts.st_dev)
            return name;
    }
    return {};
}

} // namespace marvo
